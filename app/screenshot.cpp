#include "app/screenshot.h"

#include <cstdio>
#include <QApplication>
#include <QDialog>
#include <QPixmap>
#include <QPushButton>

#include "platform/desktop/desktop.h"

namespace {

// What the off-screen platform cannot do is nothing to whoever wants a picture. What the program itself says, it was
// asked for.
void onlyGraveMessages(QtMsgType type, const QMessageLogContext& context, const QString& message) {
    if (type == QtCriticalMsg || type == QtFatalMsg || qstrncmp(context.category, "svscheduler.", 12) == 0)
        std::fprintf(stderr, "%s\n", qUtf8Printable(message));
}

}  // namespace

void QuietenPlatform() {
    qInstallMessageHandler(onlyGraveMessages);
}

void AnswerWithoutUser() {
    Desktop().msgBox = [](const QString& text, BoxStyle style, const QString& title) {
        std::fprintf(stderr, "%s: %s\n", qUtf8Printable(title), qUtf8Printable(text));
        return style.buttons == BoxStyle::Buttons::YesNo ? Answer::No : Answer::Ok;
    };
    Desktop().showModal = [](QDialog& form) -> int {
        auto* ok = form.findChild<QPushButton*>(QStringLiteral("cmdOk"));
        if (form.objectName() != QLatin1String("frmsltpv") || ok == nullptr)
            return QDialog::Rejected;
        ok->click();
        return form.result();
    };
}

bool SaveScreenshot(QWidget& window, const QString& file) {
    QApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    if (window.grab().save(file, "PNG"))
        return true;
    std::fprintf(stderr, "svscheduler: the picture could not be written to %s\n", qUtf8Printable(file));
    return false;
}
