#include "app/frmfirststart.h"

#include <QCheckBox>
#include <QCommandLinkButton>
#include <QCoreApplication>
#include <QFormLayout>
#include <QGroupBox>
#include <QLabel>
#include <QPointer>
#include <QPushButton>
#include <QStackedWidget>
#include <QThreadPool>
#include <QVBoxLayout>

#include "app/firstuserfields.h"
#include "platform/controls/formparts.h"
#include "platform/controls/textfield.h"
#include "platform/database/error.h"
#include "platform/desktop/busypointer.h"
#include "platform/desktop/credentials.h"
#include "platform/desktop/desktop.h"
#include "platform/theme/icon.h"
#include "platform/theme/theme.h"

namespace {

constexpr int TypingPauseMilliseconds = 600;
constexpr int WidthInCharacters = 84;
constexpr int PartsNamed = 4;
constexpr int LongestServerName = 255;
constexpr int LongestDatabaseName = 128;

using State = upkeep::ServerAnswer::State;

QLabel* explanation(const QString& text, QWidget* parent) {
    auto* label = new QLabel(text, parent);
    label->setWordWrap(true);
    return label;
}

QHBoxLayout* headOf(QWidget* form) {
    auto* mark = new QLabel(form);
    mark->setPixmap(Icon("scheduler").pixmap(Space(40)));
    auto* title = Named(new QLabel(frmfirststart::tr("Welcome to Solvane Scheduler"), form), "lblheading");
    title->setFont(HeadingFont(2));
    auto* row = new QHBoxLayout;
    row->setSpacing(Space(12));
    row->addWidget(mark);
    row->addWidget(title, 1);
    return row;
}

/// "appointments, patient_info.archive and 3 more"
QString named(const QStringList& parts) {
    const QString first = parts.mid(0, PartsNamed).join(QStringLiteral(", "));
    return parts.size() <= PartsNamed ? first
                                      : frmfirststart::tr("%1 and %2 more").arg(first).arg(parts.size() - PartsNamed);
}

QString answerText(const upkeep::ServerAnswer& answer, const QString& database) {
    switch (answer.state) {
        case State::Silent:
            return frmfirststart::tr("No connection. %1").arg(answer.why);
        case State::Empty:
            return frmfirststart::tr("%1 answers. The database %2 is empty; its tables are made when you go on.")
                .arg(answer.engine, database);
        case State::Foreign:
            return frmfirststart::tr("%1 answers, but the database %2 is not one of a practice. It lacks %3.")
                .arg(answer.engine, database, named(answer.missing));
        case State::Ready:
            break;
    }
    QString text = frmfirststart::tr("%1 answers. The database %2 holds the practice.").arg(answer.engine, database);
    if (!answer.missing.isEmpty())
        text += frmfirststart::tr(" It is of an older version and lacks %1; \"svscheduler-admin upgrade\" adds that.")
                    .arg(named(answer.missing));
    if (!answer.hasUsers)
        text += frmfirststart::tr(" Nobody may log on yet: name the first administrator.");
    return text;
}

}  // namespace

frmfirststart::frmfirststart(const QString& folder, int key, Ask ask, QWidget* parent)
    : QDialog(parent), folder_(folder), key_(key), ask_(std::move(ask)) {
    setObjectName(QStringLiteral("frmfirststart"));
    setWindowTitle(QStringLiteral("Solvane Scheduler"));
    buildForm();
    connect(cmddemo, &QCommandLinkButton::clicked, this, [this] {
        chosen_ = Choice::Demo;
        accept();
    });
    connect(cmddesk, &QCommandLinkButton::clicked, this, [this] { showPage(Choice::OneDesk); });
    connect(cmdserver, &QCommandLinkButton::clicked, this, [this] { showPage(Choice::Server); });
    connect(cmdback, &QPushButton::clicked, this, [this] { showPage(Choice::None); });
    connect(cmdOk, &QPushButton::clicked, this, &frmfirststart::cmdOk_Click);
    connect(cmdcancel, &QPushButton::clicked, this, &QDialog::reject);
    for (TextField* field : {txtserver, txtdatabase, txtsvs})
        connect(field, &TextField::textChanged, this, &frmfirststart::askSoon);
    for (FirstUserFields* fields : {deskUser, serverUser})
        connect(fields, &FirstUserFields::Changed, this, &frmfirststart::enableOk);
    showPage(Choice::None);
}

void frmfirststart::buildForm() {
    pages = Named(new QStackedWidget(this), "pages");
    pages->addWidget(buildChoicePage());
    pages->addWidget(buildDeskPage());
    pages->addWidget(buildServerPage());
    cmdback = FormButton(tr("&Back"), "cmdback", this);
    cmdOk = FormButton(tr("&OK"), "cmdOk", this);
    cmdcancel = FormButton(tr("Cancel"), "cmdcancel", this);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(Space(24), Space(20), Space(24), Space(16));
    column->setSpacing(Space(16));
    column->addLayout(headOf(this));
    column->addWidget(pages, 1);
    column->addLayout(ButtonRow({cmdback, cmdOk, cmdcancel}));
    setMinimumWidth(fontMetrics().averageCharWidth() * WidthInCharacters);
}

QCommandLinkButton* frmfirststart::choiceButton(const char* name, const char* icon, const QString& text,
                                                const QString& description) {
    auto* button = Named(new QCommandLinkButton(text, description, this), name);
    button->setAccessibleDescription(description);
    button->setIcon(Icon(icon));
    button->setIconSize(QSize(Space(24), Space(24)));
    button->setAutoDefault(true);
    // A flat button has no frame that could show the focus.
    button->setFlat(false);
    return button;
}

QWidget* frmfirststart::buildChoicePage() {
    auto* page = new QWidget(this);
    cmddemo =
        choiceButton("cmddemo", "scheduler", tr("&Try the demo practice"),
                     tr("Invented patients and providers, dated around today. Nothing that you do in it counts."));
    cmddesk = choiceButton("cmddesk", "user", tr("&Keep one desk's data on this computer"),
                           tr("For a practice with a single desk. The data lies in your own folder."));
    cmdserver = choiceButton("cmdserver", "database", tr("&Connect to the practice's server"),
                             tr("For a practice whose desks share one database on a SQL Server."));
    auto* column = new QVBoxLayout(page);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(Space(8));
    column->addWidget(explanation(tr("There is no practice on this computer yet. How do you want to begin?"), page));
    for (QCommandLinkButton* button : {cmddemo, cmddesk, cmdserver})
        column->addWidget(button);
    column->addStretch(1);
    return page;
}

QWidget* frmfirststart::buildDeskPage() {
    auto* page = new QWidget(this);
    deskUser = new FirstUserFields(page);
    // Without one the practice would have no schedule at all.
    deskUser->ckschedule->hide();
    auto* column = new QVBoxLayout(page);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(Space(12));
    column->addWidget(
        explanation(tr("The data is kept in %1. You are its first user and administrator.").arg(folder_), page));
    column->addWidget(deskUser);
    column->addStretch(1);
    return page;
}

QWidget* frmfirststart::buildServerPage() {
    auto* page = new QWidget(this);
    const auto fieldOf = [page](const char* name, int most) {
        auto* field = Named(new TextField(page), name);
        field->SetMost(most);
        return field;
    };
    txtserver = fieldOf("txtserver", LongestServerName);
    txtdatabase = fieldOf("txtdatabase", LongestDatabaseName);
    txtsvs = fieldOf("txtsvs", LongestDatabaseName);
    txtfh = fieldOf("txtfh", LongestDatabaseName);
    for (TextField* password : {txtsvs, txtfh})
        password->setEchoMode(QLineEdit::Password);
    txtfh->setPlaceholderText(tr("only with a Fernhall database"));
    lblanswer = Named(explanation({}, page), "lblanswer");
    lblanswer->setAccessibleName(tr("The server's answer"));
    lblanswer->setTextFormat(Qt::PlainText);
    lblanswer->setTextInteractionFlags(Qt::TextSelectableByMouse);
    lblanswer->setMinimumHeight(fontMetrics().lineSpacing() * 3);
    lblanswer->setAlignment(Qt::AlignTop | Qt::AlignLeft);
    serverUser = new FirstUserFields(page);
    auto* form = new QFormLayout;
    form->setHorizontalSpacing(Space(12));
    form->setVerticalSpacing(Space(8));
    form->addRow(tr("&Server"), txtserver);
    form->addRow(tr("&Database"), txtdatabase);
    form->addRow(tr("Pass&word of SVMaster"), txtsvs);
    form->addRow(tr("Password of F&HMaster"), txtfh);
    auto* column = new QVBoxLayout(page);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(Space(12));
    column->addWidget(explanation(
        tr("The practice's computer person knows these. Passwords are kept in credentials.ini, which only you can read."),
        page));
    column->addLayout(form);
    column->addWidget(lblanswer);
    column->addWidget(serverUser);
    column->addStretch(1);
    return page;
}

void frmfirststart::showPage(Choice choice) {
    page_ = choice;
    pages->setCurrentIndex(choice == Choice::OneDesk ? 1 : choice == Choice::Server ? 2 : 0);
    cmdback->setVisible(choice != Choice::None);
    cmdOk->setVisible(choice != Choice::None);
    cmdOk->setDefault(choice != Choice::None);
    if (choice == Choice::OneDesk)
        deskUser->txtuid->setFocus();
    else if (choice == Choice::Server)
        txtserver->setFocus();
    else
        cmddemo->setFocus();
    enableOk();
}

bool frmfirststart::needsFirstUser() const {
    return answer_ && (answer_->state == State::Empty || (answer_->state == State::Ready && !answer_->hasUsers));
}

void frmfirststart::enableOk() {
    if (const bool asksForUser = needsFirstUser(); asksForUser != serverUser->isVisibleTo(pages->widget(2))) {
        serverUser->setVisible(asksForUser);
        layout()->activate();
        resize(size().expandedTo(sizeHint()));
    }
    const bool isReady = answer_ && (answer_->state == State::Empty || answer_->state == State::Ready);
    cmdOk->setEnabled(page_ == Choice::OneDesk ? deskUser->IsFilled()
                                               : isReady && (!needsFirstUser() || serverUser->IsFilled()));
}

upkeep::ServerPlace frmfirststart::place() const {
    return {txtserver->text().trimmed(), txtdatabase->text().trimmed(), txtsvs->text(), txtfh->text()};
}

void frmfirststart::askSoon() {
    ++asked_;
    answer_.reset();
    lblanswer->clear();
    enableOk();
    After(TypingPauseMilliseconds, this, [this, typed = asked_] {
        if (typed == asked_)
            askNow();
    });
}

void frmfirststart::askNow() {
    const upkeep::ServerPlace asked = place();
    if (asked.server.isEmpty() || asked.database.isEmpty())
        return;
    if (IsEmbeddedDataSource(asked.server)) {
        lblanswer->setText(tr("This is a folder. The practice's server has a name or an address."));
        return;
    }
    lblanswer->setText(tr("Asking %1 ...").arg(asked.server));
    const auto answered = [form = QPointer(this), serial = asked_](const upkeep::ServerAnswer& answer) {
        if (form && form->asked_ == serial)
            form->showAnswer(answer);
    };
    // A server that is away lets the question wait; the program waits for it at its end only.
    QThreadPool::globalInstance()->start([ask = ask_, asked, answered] {
        const upkeep::ServerAnswer answer = ask(asked);
        QMetaObject::invokeMethod(QCoreApplication::instance(), [answered, answer] { answered(answer); });
    });
}

void frmfirststart::showAnswer(const upkeep::ServerAnswer& answer) {
    answer_ = answer;
    lblanswer->setText(answerText(answer, place().database));
    enableOk();
}

void frmfirststart::cmdOk_Click() {
    const FirstUserFields* fields = page_ == Choice::OneDesk ? deskUser : serverUser;
    const bool makesUser = page_ == Choice::OneDesk || needsFirstUser();
    if (makesUser && !fields->PasswordsAgree()) {
        MsgBox(tr("The two passwords differ."), ExclamationBox, tr("Password"));
        fields->txtagain->setFocus();
        fields->txtagain->selectAll();
        return;
    }
    if (!make())
        return;
    chosen_ = page_;
    accept();
}

bool frmfirststart::make() {
    QString why;
    try {
        const BusyPointer busy;
        if (page_ == Choice::OneDesk)
            upkeep::MakeOneDeskPractice(folder_, deskUser->User(), key_);
        else
            upkeep::MakeServerDesk(folder_, place(),
                                   needsFirstUser() ? std::optional(serverUser->User()) : std::nullopt, key_);
        return true;
    } catch (const db::DatabaseError& error) {
        why = error.description;
    } catch (const std::exception& error) {
        why = QString::fromUtf8(error.what());
    }
    MsgBox(tr("The practice could not be set up. ") + why, ErrorBox, QStringLiteral("Error"));
    return false;
}
