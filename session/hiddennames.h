#pragma once

#include <functional>
#include <QObject>
#include <QString>

class ctList;

/// Hides or shows the names of patients at once, wherever they are painted or listed. The texts of activities,
/// unavailable time and groups stay readable.
void SetNamesHidden(bool hidden);

/// Calls `follow` now and each time the names are hidden or shown, for as long as `context` lives.
void FollowHiddenNames(QObject* context, const std::function<void(bool hidden)>& follow);
/// Makes the cells of the list that name patients (ctList::NameCell) follow.
void FollowHiddenNames(ctList* list);

/// Returns a patient's name or private text in the form in which it may be shown now.
[[nodiscard]] QString ShownName(const QString& name);

/// Raises the signal that FollowHiddenNames is connected to.
class NamesSwitch : public QObject {
    Q_OBJECT

  Q_SIGNALS:
    void Flipped(bool hidden);
};
