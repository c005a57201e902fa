#include "shell/frmabout.h"

#include <QApplication>
#include <QClipboard>
#include <QDir>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPointer>
#include <QPushButton>
#include <QSysInfo>
#include <QVBoxLayout>

#include "platform/controls/formparts.h"
#include "platform/controls/noticebar.h"
#include "platform/database/recordset.h"
#include "platform/desktop/desktop.h"
#include "platform/desktop/errorlog.h"
#include "platform/theme/icon.h"
#include "platform/theme/theme.h"
#include "session/session.h"

namespace {

QHBoxLayout* headOf(const QString& heading, QWidget* form) {
    auto* mark = new QLabel(form);
    mark->setPixmap(Icon("scheduler").pixmap(Space(40)));
    auto* title = Named(new QLabel(heading, form), "lblheading");
    title->setWordWrap(true);
    QFont font = title->font();
    font.setBold(true);
    title->setFont(font);
    auto* row = new QHBoxLayout;
    row->setSpacing(Space(12));
    row->addWidget(mark);
    row->addWidget(title, 1);
    return row;
}

QString schemaVersion() {
    QString version = QStringLiteral("unknown");
    db::Ignoring([&] {
        const db::Recordset row("Select DfltValue from DefaultFieldValues Where dfltfieldname = 'SVSchedulerSchema'",
                                Session().Connection);
        version = row.Eof() ? QStringLiteral("without a number") : row[0].text();
    });
    return version;
}

}  // namespace

frmabout::frmabout(const QString& caption, const QString& heading, const QString& facts, QWidget* parent)
    : QDialog(parent) {
    setObjectName(QStringLiteral("frmabout"));
    setWindowTitle(caption);
    txtfacts = Named(new QPlainTextEdit(facts, this), "txtfacts");
    txtfacts->setReadOnly(true);
    txtfacts->setTabChangesFocus(true);
    txtfacts->setAccessibleName(heading);
    txtfacts->setLineWrapMode(QPlainTextEdit::NoWrap);
    cmdcopy = FormButton(tr("&Copy"), "cmdcopy", this);
    cmdclose = FormButton(tr("Close"), "cmdclose", this);
    cmdclose->setDefault(true);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(Space(16), Space(16), Space(16), Space(16));
    column->setSpacing(Space(12));
    column->addLayout(headOf(heading, this));
    column->addWidget(txtfacts, 1);
    column->addLayout(ButtonRow({cmdcopy, cmdclose}));
    cmdclose->setFocus();
    resize(fontMetrics().averageCharWidth() * 72, fontMetrics().height() * 18);
    connect(cmdcopy, &QPushButton::clicked, this, &frmabout::cmdcopy_Click);
    connect(cmdclose, &QPushButton::clicked, this, &QDialog::reject);
}

void frmabout::cmdcopy_Click() {
    QApplication::clipboard()->setText(txtfacts->toPlainText());
    cmdcopy->setText(tr("&Copied"));
}

QString ProgramFacts() {
    const db::EngineFacts engine = Session().Connection.Facts();
    QStringList facts{
        QStringLiteral("SVScheduler ") + QLatin1String(SVS_VERSION), QStringLiteral("Qt ") + QLatin1String(qVersion()),
        QStringLiteral("Database: ") + (engine.engine.isEmpty() ? QStringLiteral("not connected") : engine.engine)};
    if (!engine.driver.isEmpty())
        facts << QStringLiteral("Driver: ") + engine.driver;
    if (!engine.engine.isEmpty())
        facts << QStringLiteral("Schema: ") + schemaVersion();
    facts << QStringLiteral("System: %1, %2").arg(QSysInfo::prettyProductName(), QSysInfo::currentCpuArchitecture())
          << QStringLiteral("Platform: %1, scale %2").arg(QApplication::platformName()).arg(qApp->devicePixelRatio())
          << QStringLiteral("Log: ") + ErrorLogFile().replace(QDir::homePath(), QStringLiteral("~"));
    return facts.join(QLatin1Char('\n'));
}

void ShowAbout(QWidget* parent) {
    frmabout form(QObject::tr("About Solvane Scheduler"),
                  QObject::tr("Solvane Scheduler\nThe appointment book of a behavioural-health practice"),
                  ProgramFacts(), parent);
    ShowModal(form);
}

void OfferCrashNote(QWidget* parent) {
    const QString note = TakeCrashNote();
    if (note.isEmpty())
        return;
    const auto show = [note, window = QPointer<QWidget>(parent)] {
        frmabout form(
            QObject::tr("The program ended unexpectedly"),
            QObject::tr("What was at work when the program ended. It names no patient; copy it for whoever helps you."),
            note + QLatin1Char('\n') + ProgramFacts(), window);
        ShowModal(form);
    };
    ShowNotice({.text = QObject::tr("The program ended unexpectedly the last time. What was saved is there."),
                .kind = Notice::Kind::Caution,
                .actions = {{QObject::tr("Show"), show}},
                .subject = QStringLiteral("crash")});
}
