#include "companion/frmfhevents.h"

#include <array>
#include <QCheckBox>
#include <QLabel>
#include <QLayout>
#include <QPushButton>

#include "appointments/attendeelist.h"
#include "appointments/attendeepanel.h"
#include "companion/companionfields.h"
#include "platform/controls/ctnedit.h"
#include "platform/controls/formarea.h"
#include "platform/controls/textfield.h"
#include "platform/database/readtogether.h"
#include "platform/database/recordset.h"
#include "platform/desktop/busypointer.h"
#include "session/errorbox.h"
#include "session/formheading.h"
#include "session/session.h"

namespace {

constexpr char ProvidersStatement[] =
    "Select ProvId, ProvLastName + ', ' + ProvFirstName from Providers Order by ProvLastName, ProvFirstName";
constexpr char NoProviders[] = "Error loading Fernhall providers. ";
constexpr char NoEvent[] = "Error loading event. ";

}  // namespace

frmFHEvents::frmFHEvents(const CompanionEventRequest& request, QWidget* parent)
    : EditorDialog(parent), request_(request) {
    setObjectName(QStringLiteral("frmFHEvents"));
    setWindowTitle(tr("Fernhall Event"));
    buildForm();
    connectFields();
    load();
    HeadByAttendees(*FormHeading::Above(*this, tr("Fernhall Event")), *txtdate, *List1);
    FitToScreen(*this);
}

// The focus leaves its field when the form goes, which must still find the whole form.
frmFHEvents::~frmFHEvents() {
    hide();
}

QString frmFHEvents::Subject() const {
    return tr("event on %1 at %2").arg(txtdate->Text(), txtstarttime->Text());
}

// Both reads share one connection, so that a companion that is away is waited for and told once.
void frmFHEvents::load() {
    const BusyPointer busy;
    const bool isNew = request_.ceveid == 0;
    db::Connection companion;
    try {
        companion.Open(Session().FHConnectionString);
    } catch (const db::DatabaseError& error) {
        TellError(QString::fromLatin1(isNew ? NoProviders : NoEvent), error);
    }
    if (companion.IsOpen()) {
        QStringList statements{QString::fromLatin1(ProvidersStatement)};
        if (!isNew)
            statements << CompanionEventStatement(request_.ceveid);
        const db::ReadTogether together(companion, statements);
        LoadProviders(companion);
        if (!isNew)
            LoadEvent(companion);
    }
    if (isNew)
        showSelection();
    else if (!loaded_ && lblnotice->text().isEmpty())
        lock(tr("The event could not be read, so it cannot be changed here."));
    List1->ShowFirstSelected();
    nameShown_ = txtevent->text();
}

void frmFHEvents::LoadProviders(db::Connection& companion) {
    try {
        QList<ListedProvider> providers;
        for (db::Recordset rows(QString::fromLatin1(ProvidersStatement), companion); !rows.Eof(); rows.MoveNext())
            providers.append({rows[0].text(), rows[1].text()});
        List1->AddProviders(providers);
    } catch (const db::DatabaseError& error) {
        TellError(QString::fromLatin1(NoProviders), error);
    }
}

void frmFHEvents::LoadEvent(db::Connection& companion) {
    try {
        loaded_ = ReadCompanionEvent(companion, request_.ceveid);
    } catch (const db::DatabaseError& error) {
        TellError(QString::fromLatin1(NoEvent), error);
        return;
    }
    if (!loaded_)
        return lock(tr("The event is no longer there. Fernhall or another desk has deleted it."));
    fillFields(*loaded_);
    showAttendees(loaded_->attendees);
    if (loaded_->recurs)
        lock(QStringLiteral("You cannot modify a recurring event in Solvane. Use Fernhall to modify this event."));
    else if (loaded_->attendees.isEmpty())
        lock(tr("Nobody attends this event. Only Fernhall can change it."));
}

void frmFHEvents::fillFields(const CompanionEvent& event) {
    txtevent->ShowWhole(event.name);
    txtdate->setDate(event.date);
    txtstarttime->setTime(event.start);
    if (event.duration != 0)
        txtduration->setValue(event.duration);
    ckallday->setChecked(event.allDay);
    ckAllProviders->setChecked(event.allProviders);
}

// Who is in no list of the companion any more would leave the event unseen with the next save.
void frmFHEvents::showAttendees(const QList<int>& attendees) {
    for (const int provider : attendees) {
        const QString id = QString::number(provider);
        if (List1->FindProvider(id) < 0)
            List1->AddProvider(id, tr("Provider %1 (no longer on the list)").arg(id));
        List1->SelectProvider(List1->FindProvider(id));
    }
}

void frmFHEvents::showSelection() {
    CompanionEvent event;
    event.date = request_.date;
    event.start = request_.start;
    event.duration = request_.duration;
    fillFields(event);
    List1->SelectProvider(List1->FindProvider(QString::number(request_.provId)));
}

// The fields keep their height: the dialog grows by what the notice takes.
void frmFHEvents::notify(const QString& text) {
    QWidget& notice = *lblnotice->parentWidget();
    const int before = notice.isHidden() ? 0 : notice.height() + layout()->spacing();
    lblnotice->setText(text);
    notice.show();
    const int after = notice.layout()->totalHeightForWidth(layout()->contentsRect().width()) + layout()->spacing();
    if (isVisible())
        resize(width(), height() + after - before);
}

void frmFHEvents::lock(const QString& why) {
    notify(why);
    const std::array<QWidget*, 9> parts{txtevent,       txtdate, txtstarttime, txtduration, ckallday,
                                        ckAllProviders, List1,   cmdDelete,    cmdOk};
    for (QWidget* part : parts)
        part->setEnabled(false);
    cmdCancel->setText(tr("Close"));
    cmdCancel->setDefault(true);
    cmdCancel->setFocus();
}
