#include "rooms/frmroomappt.h"

#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include "data/minutetime.h"
#include "platform/controls/ctdedit.h"
#include "platform/controls/formarea.h"
#include "platform/controls/formparts.h"
#include "platform/controls/textfield.h"
#include "platform/desktop/desktop.h"
#include "platform/desktop/localefacts.h"
#include "platform/text/plaintext.h"
#include "platform/theme/theme.h"
#include "session/errorbox.h"
#include "session/formheading.h"
#include "session/session.h"

namespace {

constexpr int FirstDateValue = 100;  // A date field with a value below this holds no date.
constexpr int LongestSubject = 100;

}  // namespace

frmRoomAppt::frmRoomAppt(const RoomMeeting& meeting, QDate date, const QString& roomName, QWidget* parent)
    : EditorDialog(parent), meeting_(meeting), shown_(meeting) {
    shown_.date = date;
    setObjectName(QStringLiteral("frmRoomAppt"));
    setWindowTitle(QStringLiteral("Room Schedule"));
    buildForm(roomName);
    shown_.text = txtsubject->text();
    // The line must be filled before the form takes its size.
    showMove();
    layOutForm();
    connect(ctedate, &ctDEdit::Change, this, &frmRoomAppt::showMove);
    connect(cmdOk, &QPushButton::clicked, this, &frmRoomAppt::cmdOk_Click);
    connect(cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
}

// A field with the focus is left while the form is destroyed, so the form is hidden while it is still whole.
frmRoomAppt::~frmRoomAppt() {
    hide();
}

void frmRoomAppt::buildForm(const QString& roomName) {
    const SessionValues& session = Session();
    lblRoom = new QLabel(OneLine(roomName), this);
    lblRoom->setObjectName(QStringLiteral("lblRoom"));
    lblRoom->setTextFormat(Qt::PlainText);
    lblRoom->setFont(HeadingFont(1));
    ctedate = new ctDEdit(ctDEdit::Kind::Date, this);
    ctedate->setObjectName(QStringLiteral("ctedate"));
    ctedate->setDateOrder(session.DateOrder);
    ctedate->setDate(shown_.date);
    lblmoves = new QLabel(this);
    lblmoves->setObjectName(QStringLiteral("lblmoves"));
    lblmoves->setWordWrap(true);
    const auto time = [&](const char* name, int minutes) {
        auto* field = new ctDEdit(ctDEdit::Kind::Time, this);
        field->setObjectName(QLatin1String(name));
        field->setTwentyFourHour(session.MilitaryTime);
        field->setRange(0, MinutesPerDay);
        field->setTime(minutes);
        return field;
    };
    ctstart = time("ctstart", meeting_.start);
    ctend = time("ctend", meeting_.end);
    ctend->setIsEnd(true);
    auto* subject = new TextField(this);
    subject->setObjectName(QStringLiteral("txtsubject"));
    subject->SetMost(LongestSubject);
    subject->ShowWhole(meeting_.text);
    txtsubject = subject;
    for (ctDEdit* field : {ctedate, ctstart, ctend})
        field->setEnabled(!meeting_.bound);
    cmdOk = new QPushButton(tr("&OK"), this);
    cmdOk->setObjectName(QStringLiteral("cmdOk"));
    cmdOk->setDefault(true);
    cmdCancel = new QPushButton(tr("&Cancel"), this);
    cmdCancel->setObjectName(QStringLiteral("cmdCancel"));
    cmdCancel->setAutoDefault(false);
}

void frmRoomAppt::layOutForm() {
    auto* fields = new QWidget(this);
    auto* form = new QFormLayout(fields);
    form->setContentsMargins(0, 0, 0, 0);
    form->setVerticalSpacing(Space(8));
    form->addRow(tr("Room:"), lblRoom);
    form->addRow(tr("S&ubject:"), txtsubject);
    form->addRow(tr("&Date:"), ctedate);
    form->addRow(lblmoves);
    form->addRow(tr("&Start:"), ctstart);
    form->addRow(tr("&End:"), ctend);
    for (QWidget* field :
         {static_cast<QWidget*>(ctedate), static_cast<QWidget*>(ctstart), static_cast<QWidget*>(ctend)})
        field->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    txtsubject->setMinimumWidth(fontMetrics().averageCharWidth() * 40);
    auto* buttons = ButtonRow({cmdOk, cmdCancel});
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(Space(16), Space(16), Space(16), Space(16));
    column->setSpacing(Space(16));
    column->addWidget(new FormArea(fields, this), 1);
    column->addLayout(buttons);
    FormHeading* heading = FormHeading::Above(*this, tr("Room Meeting"));
    heading->SetWhom(lblRoom->text());
    heading->FollowDay(*ctedate);
    FitToScreen(*this);
    txtsubject->setFocus();
    txtsubject->selectAll();
}

void frmRoomAppt::showMove() {
    const bool elsewhere = ctedate->Date().isValid() && ctedate->Date() != meeting_.date;
    const QString text = meeting_.key > 0 ? tr("The meeting is on %1. Saving a change moves it to the date above.")
                                          : tr("The schedule shows %1. The meeting will be booked on the date above.");
    lblmoves->setText(elsewhere ? text.arg(ShortDateText(meeting_.date)) : QString());
    lblmoves->setVisible(elsewhere);
}

RoomMeeting frmRoomAppt::wanted() const {
    RoomMeeting meeting = meeting_;
    meeting.date = ctedate->Date();
    meeting.start = ctstart->Time();
    meeting.end = ctend->Time();
    meeting.text = txtsubject->text();
    return meeting;
}

bool frmRoomAppt::isComplete() {
    struct Rule {
        bool broken;
        const char* title;
        const char* message;
        QWidget* field;
    };
    const Rule rules[] = {
        {ctedate->Value() < FirstDateValue, "Missing Data", "Enter a valid date.", ctedate},
        {ctend->Value() < 1, "Missing Data", "Enter valid end time.", ctend},
        {ctstart->Value() < 0, "Missing Data", "Enter valid start time.", ctstart},
        {ctstart->Value() >= ctend->Value(), "Invalid Data", "End time must be greater than start time", ctstart},
        {txtsubject->text().trimmed().isEmpty(), "Missing Data", "No Subject for appointment time entered.",
         txtsubject},
    };
    for (const Rule& rule : rules) {
        if (!rule.broken)
            continue;
        MsgBox(QString::fromLatin1(rule.message), ExclamationBox, QString::fromLatin1(rule.title));
        rule.field->setFocus();
        return false;
    }
    return true;
}

void frmRoomAppt::cmdOk_Click() {
    // The times of a slot may be ones that no field can show. They are not checked where they cannot be changed.
    if (!meeting_.bound && !isComplete())
        return;
    try {
        if (IsEdit() && !SaveUpdate())
            return closeUnsaved();
        if (!IsEdit())
            SaveNew();
        accept();
    } catch (const db::DatabaseError& error) {
        TellError(QStringLiteral("Error saving room schedule. "), error);
        closeUnsaved();
    }
}

QString frmRoomAppt::Subject() const {
    return tr("meeting on %1 at %2").arg(ctedate->Text(), ctstart->Text());
}

void frmRoomAppt::SaveNew() {
    savedKey_ = AddMeeting(wanted());
}

bool frmRoomAppt::SaveUpdate() {
    const RoomMeeting changed = wanted();
    if (changed != shown_ && !SaveMeeting(meeting_, changed)) {
        MsgBox(QStringLiteral("Error saving. Another user may have deleted this assignment."), ErrorBox,
               QStringLiteral("Error"));
        return false;
    }
    savedKey_ = meeting_.key;
    return true;
}
