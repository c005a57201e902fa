#include <gtest/gtest.h>

#include <QApplication>
#include <QFont>
#include <QLocale>

// Every test program: one application, with the font and the locale pinned so that layouts and texts are the same on
// every machine.
int main(int argc, char** argv) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates));
    QApplication app(argc, argv);
    QApplication::setStyle(QStringLiteral("Fusion"));
    QApplication::setFont(QFont(QStringLiteral("DejaVu Sans"), 9));
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
