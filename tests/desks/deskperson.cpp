#include "tests/desks/deskperson.h"

#include <gtest/gtest.h>

#include <QDate>

namespace {

constexpr int PatienceMilliseconds = 60000;

}  // namespace

Display::Display() {
    server_.start(QStringLiteral("Xvfb"), {QStringLiteral("-displayfd"), QStringLiteral("1"), QStringLiteral("-screen"),
                                           QStringLiteral("0"), QStringLiteral("1280x800x24")});
    while (!server_.canReadLine())
        if (!server_.waitForReadyRead(PatienceMilliseconds)) {
            ADD_FAILURE() << "No display came up.";
            return;
        }
    name_ = QLatin1Char(':') + QString::fromLatin1(server_.readLine()).trimmed();
}

Display::~Display() {
    server_.kill();
    server_.waitForFinished(PatienceMilliseconds);
}

void Person::xdotool(const QStringList& words) {
    QProcess tool;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("DISPLAY"), display_);
    tool.setProcessEnvironment(environment);
    tool.start(QStringLiteral("xdotool"), words);
    EXPECT_TRUE(tool.waitForFinished(PatienceMilliseconds) && tool.exitCode() == 0)
        << words.join(QLatin1Char(' ')).toStdString() << ": " << tool.readAllStandardError().toStdString();
}

void Person::turnTo(const char* window) {
    desk_.await(window);
    xdotool({QStringLiteral("windowfocus"), QStringLiteral("--sync"), desk_.tell("windowId")});
}

void Person::press(const QStringList& keys) {
    xdotool(QStringList{QStringLiteral("key"), QStringLiteral("--delay"), QStringLiteral("20")} + keys);
}

void Person::type(const QString& text) {
    xdotool({QStringLiteral("type"), QStringLiteral("--delay"), QStringLiteral("20"), text});
}

void Person::chooseFile(const QString& file) {
    turnTo("QFileDialog");
    press({QStringLiteral("ctrl+a")});
    type(file);
    press({QStringLiteral("Return")});
}

void Person::click(const QString& place, int button) {
    const QStringList at = place.split(QLatin1Char(' '));
    xdotool({QStringLiteral("mousemove"), at.value(0), at.value(1), QStringLiteral("click"), QString::number(button)});
}

void Person::doubleClick(const QString& place) {
    const QStringList at = place.split(QLatin1Char(' '));
    xdotool({QStringLiteral("mousemove"), at.value(0), at.value(1), QStringLiteral("click"), QStringLiteral("--repeat"),
             QStringLiteral("2"), QStringLiteral("--delay"), QStringLiteral("60"), QStringLiteral("1")});
}

void Person::drag(const QString& from, const QString& to) {
    const QStringList start = from.split(QLatin1Char(' '));
    const QStringList end = to.split(QLatin1Char(' '));
    const QString middle = QString::number((start.value(1).toInt() + end.value(1).toInt()) / 2);
    xdotool({QStringLiteral("mousemove"), start.value(0), start.value(1), QStringLiteral("mousedown"),
             QStringLiteral("1"), QStringLiteral("mousemove"), start.value(0), middle, QStringLiteral("sleep"),
             QStringLiteral("0.05"), QStringLiteral("mousemove"), end.value(0), end.value(1), QStringLiteral("sleep"),
             QStringLiteral("0.05"), QStringLiteral("mouseup"), QStringLiteral("1")});
}

void Person::picture(const char* name) {
    const QString folder = qEnvironmentVariable("SVS_PICTURES");
    if (!folder.isEmpty())
        desk_.tell("picture", QStringLiteral("%1/%2.png").arg(folder, QLatin1String(name)));
}
