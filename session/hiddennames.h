#pragma once

#include <functional>
#include <QObject>
#include <QString>

class ctList;

/// Hides or shows the names of patients wherever they are painted or listed, at once. What activities, unavailable time
/// and groups are called stays readable.
void SetNamesHidden(bool hidden);

/// Runs `follow` now, and whenever the names are hidden or shown as long as `context` lives.
void FollowHiddenNames(QObject* context, const std::function<void(bool hidden)>& follow);
/// The cells of the list that name patients (ctList::NameCell) follow.
void FollowHiddenNames(ctList* list);

/// A patient's name, or what would betray it, as it may be shown now.
[[nodiscard]] QString ShownName(const QString& name);

/// What FollowHiddenNames listens to.
class NamesSwitch : public QObject {
    Q_OBJECT

  Q_SIGNALS:
    void Flipped(bool hidden);
};
