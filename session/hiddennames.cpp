#include "session/hiddennames.h"

#include "platform/controls/ctlist.h"
#include "session/session.h"

namespace {

NamesSwitch& namesSwitch() {
    static NamesSwitch names;
    return names;
}

}  // namespace

void SetNamesHidden(bool hidden) {
    Session().HidePatientNames = hidden;
    Q_EMIT namesSwitch().Flipped(hidden);
}

void FollowHiddenNames(QObject* context, const std::function<void(bool)>& follow) {
    QObject::connect(&namesSwitch(), &NamesSwitch::Flipped, context, follow);
    follow(Session().HidePatientNames);
}

void FollowHiddenNames(ctList* list) {
    FollowHiddenNames(list, [list](bool hidden) { list->SetNamesHidden(hidden); });
}

QString ShownName(const QString& name) {
    return Session().HidePatientNames && !name.isEmpty() ? HiddenNameText() : name;
}
