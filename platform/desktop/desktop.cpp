#include "platform/desktop/desktop.h"

#include <algorithm>
#include <QApplication>
#include <QCursor>
#include <QDesktopServices>
#include <QDialog>
#include <QFileDialog>
#include <QFileInfo>
#include <QGridLayout>
#include <QLabel>
#include <QMessageBox>
#include <QProcess>
#include <QRandomGenerator>
#include <QScreen>
#include <QTimer>
#include <QUrl>
#include <vector>

#include "platform/desktop/detachedprogram.h"
#include "platform/desktop/opendialog.h"
#include "platform/desktop/questions.h"

namespace {

/// The width that a window's frame takes beside its title for its icon and buttons.
constexpr int FrameButtons = 140;

QMessageBox::Icon iconOf(BoxStyle::Picture picture) {
    switch (picture) {
        case BoxStyle::Picture::Information:
            return QMessageBox::Information;
        case BoxStyle::Picture::Exclamation:
            return QMessageBox::Warning;
        case BoxStyle::Picture::Question:
            return QMessageBox::Question;
        case BoxStyle::Picture::Critical:
            return QMessageBox::Critical;
        case BoxStyle::Picture::None:
            break;
    }
    return QMessageBox::NoIcon;
}

// Shows the normal pointer while the user is asked something during a busy pointer.
class NormalPointer {
  public:
    NormalPointer() {
        while (const QCursor* cursor = QGuiApplication::overrideCursor()) {
            taken_.push_back(*cursor);
            QGuiApplication::restoreOverrideCursor();
        }
    }
    ~NormalPointer() {
        for (; !taken_.empty(); taken_.pop_back())
            QGuiApplication::setOverrideCursor(taken_.back());
    }
    NormalPointer(const NormalPointer&) = delete;
    NormalPointer& operator=(const NormalPointer&) = delete;

  private:
    std::vector<QCursor> taken_;
};

int widthOfTitle(const QWidget& window) {
    QFont bold = window.font();
    bold.setBold(true);
    return QFontMetrics(bold).horizontalAdvance(window.windowTitle()) + FrameButtons;
}

// A box is only as wide as its text, which may be so short that the title would be cut.
void makeRoomForTitle(QMessageBox& box) {
    auto* grid = qobject_cast<QGridLayout*>(box.layout());
    if (grid == nullptr)
        return;
    const int title = widthOfTitle(box);
    grid->addItem(new QSpacerItem(title, 0, QSizePolicy::Minimum, QSizePolicy::Fixed), grid->rowCount(), 0, 1,
                  grid->columnCount());
}

void showFacts(QMessageBox& box) {
    box.setInformativeText(FactsOfQuestion());
    // The box would otherwise take what looks like markup for markup.
    if (auto* facts = box.findChild<QLabel*>(QStringLiteral("qt_msgbox_informativelabel")))
        facts->setTextFormat(Qt::PlainText);
}

// A small form is as wide as its fields. A form whose layout fixes its size keeps it.
void makeRoomForTitle(QDialog& form) {
    const int most = std::min(form.maximumWidth(), form.screen()->availableSize().width());
    const int least = std::min(widthOfTitle(form), most);
    if (form.minimumWidth() < least)
        form.setMinimumWidth(least);
}

Answer realMsgBox(const QString& text, BoxStyle style, const QString& title) {
    const NormalPointer pointer;
    QMessageBox box(iconOf(style.picture), title, text, QMessageBox::NoButton, QApplication::activeWindow());
    box.setTextFormat(Qt::PlainText);
    showFacts(box);
    makeRoomForTitle(box);
    if (style.buttons == BoxStyle::Buttons::Ok) {
        box.setStandardButtons(QMessageBox::Ok);
        box.exec();
        return Answer::Ok;
    }
    box.setStandardButtons(QMessageBox::Yes | QMessageBox::No);
    box.setEscapeButton(QMessageBox::No);
    // A warning asks before something is lost, so Enter answers No.
    if (style == YesNoWarningBox)
        box.setDefaultButton(QMessageBox::No);
    return box.exec() == QMessageBox::Yes ? Answer::Yes : Answer::No;
}

int realShowModal(QDialog& form) {
    const NormalPointer pointer;
    if (!form.parentWidget() && QApplication::activeWindow() && QApplication::activeWindow() != &form)
        form.setParent(QApplication::activeWindow(), form.windowFlags());
    makeRoomForTitle(form);
    return form.exec();
}

// Sounds are played by the desktop's own player, so that no multimedia library is loaded for three short sounds.
void realPlaySound(const QString& path) {
    if (!QFileInfo::exists(path))
        return;
    for (const QString& player : {QStringLiteral("paplay"), QStringLiteral("pw-play"), QStringLiteral("aplay")}) {
        if (QProcess::startDetached(player, {path}))
            return;
    }
}

bool realStartProgram(const QString& path, const QString& arguments, const QString& folder) {
    const int error = StartDetached(path, arguments, folder);
    if (error == 0)
        return true;
    MsgBox(QStringLiteral("Error %1 %2").arg(error).arg(qt_error_string(error)), ErrorBox, QStringLiteral("Error"));
    return false;
}

QString realChooseSaveFile(const QString& title, const QString& proposal, const QString& filter, AsksToReplace asks) {
    const NormalPointer pointer;
    return QFileDialog::getSaveFileName(
        QApplication::activeWindow(), title, proposal, filter, nullptr,
        asks == AsksToReplace::Caller ? QFileDialog::DontConfirmOverwrite : QFileDialog::Options());
}

}  // namespace

DesktopSeams RealDesktop() {
    return {realMsgBox,
            realShowModal,
            [] { return QDateTime::currentDateTime(); },
            [](int milliseconds, QObject* context, std::function<void()> step) {
                QTimer::singleShot(milliseconds, context, std::move(step));
            },
            [] { return QRandomGenerator::global()->generateDouble(); },
            realPlaySound,
            [](const QString& target) { return QDesktopServices::openUrl(QUrl::fromUserInput(target)); },
            realStartProgram,
            realChooseSaveFile};
}

DesktopSeams& Desktop() {
    static DesktopSeams seams = RealDesktop();
    return seams;
}

namespace {

std::function<void()>& beforeQuestion() {
    static std::function<void()> step = [] {};
    return step;
}

QString& factsOfQuestion() {
    static QString facts;
    return facts;
}

}  // namespace

void BeforeQuestions(std::function<void()> step) {
    beforeQuestion() = std::move(step);
}

Answer MsgBox(const QString& text, BoxStyle style, const QString& title) {
    const OpenDialog open;
    beforeQuestion()();
    return Desktop().msgBox(text, style, title);
}

Answer AskWithFacts(const QString& text, const QString& facts, const QString& title) {
    factsOfQuestion() = facts;
    const Answer answer = MsgBox(text, YesNoWarningBox, title);
    factsOfQuestion().clear();
    return answer;
}

QString FactsOfQuestion() {
    return factsOfQuestion();
}

int ShowModal(QDialog& form) {
    const OpenDialog open;
    beforeQuestion()();
    return Desktop().showModal(form);
}

QString ChooseSaveFile(const QString& title, const QString& proposal, const QString& filter, AsksToReplace asks) {
    const OpenDialog open;
    return Desktop().chooseSaveFile(title, proposal, filter, asks);
}

QDateTime Now() {
    const QDateTime now = Desktop().now();
    return {now.date(), now.time(), Qt::UTC};
}

QDate Today() {
    return Now().date();
}

void After(int milliseconds, QObject* context, std::function<void()> step) {
    Desktop().after(milliseconds, context, std::move(step));
}

double RandomNumber() {
    return Desktop().random();
}

void PlaySound(const QString& path) {
    Desktop().playSound(path);
}

bool OpenWithShell(const QString& target) {
    return Desktop().openWithShell(target);
}

bool StartProgram(const QString& path, const QString& arguments, const QString& folder) {
    return Desktop().startProgram(path, arguments, folder);
}
