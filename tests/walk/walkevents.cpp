#include "tests/walk/walkevents.h"

#include <QApplication>
#include <QPointer>
#include <QTest>
#include <QWindow>

// As QTest sends them, but without letting other events through in between.
QT_BEGIN_NAMESPACE
Q_GUI_EXPORT void qt_handleKeyEvent(QWindow* window, QEvent::Type type, int key, Qt::KeyboardModifiers modifiers,
                                    const QString& text, bool repeated, ushort count);
QT_END_NAMESPACE

namespace walk {

namespace {

constexpr int ClickPause = 1000;  ///< Milliseconds, after which a click belongs to no double click.

int timestamp = 1000;
QPointer<QWindow> pressed;  ///< It has the mouse until the button is released.

QWidget* mainWindow() {
    for (QWidget* window : QApplication::topLevelWidgets())
        if (window->objectName() == QLatin1String("mdisched"))
            return window;
    return nullptr;
}

QWindow* withKeyboard() {
    if (QWindow* focused = QGuiApplication::focusWindow())
        return focused;
    QWidget* front = QApplication::activeModalWidget() != nullptr ? QApplication::activeModalWidget() : mainWindow();
    if (front != nullptr)
        front->activateWindow();
    return front != nullptr ? front->windowHandle() : nullptr;
}

QWindow* under(QPoint at) {
    if (pressed != nullptr)
        return pressed;
    if (QWindow* window = QGuiApplication::topLevelAt(at))
        return window;
    return mainWindow() != nullptr ? mainWindow()->windowHandle() : nullptr;
}

void key(QEvent::Type type, int code, Qt::KeyboardModifiers modifiers, const QString& text) {
    if (QWindow* window = withKeyboard())
        qt_handleKeyEvent(window, type, code, modifiers, text, false, 1);
}

void mouse(QEvent::Type type, QPoint at, Qt::MouseButton button) {
    QWindow* window = under(at);
    if (window == nullptr)
        return;
    const bool isPress = type == QEvent::MouseButtonPress;
    const bool isMove = type == QEvent::MouseMove;
    pressed = isPress || (isMove && pressed != nullptr) ? window : nullptr;
    const Qt::MouseButtons held = isPress || pressed != nullptr ? button : Qt::NoButton;
    qt_handleMouseEvent(window, window->mapFromGlobal(at), at, held, isMove ? Qt::NoButton : button, type, {},
                        timestamp += 10);
}

QString textOf(int code, Qt::KeyboardModifiers modifiers) {
    if (modifiers & (Qt::ControlModifier | Qt::AltModifier))
        return {};
    switch (code) {
        case Qt::Key_Return:
            return QStringLiteral("\r");
        case Qt::Key_Tab:
            return QStringLiteral("\t");
        case Qt::Key_Escape:
            return QStringLiteral("\x1b");
        case Qt::Key_Backspace:
            return QStringLiteral("\b");
        default:
            return code >= Qt::Key_Space && code <= Qt::Key_AsciiTilde ? QString(QChar(code).toLower()) : QString();
    }
}

Events pressAndRelease(int code, Qt::KeyboardModifiers modifiers, const QString& text) {
    return {[=] { key(QEvent::KeyPress, code, modifiers, text); },
            [=] { key(QEvent::KeyRelease, code, modifiers, text); }};
}

}  // namespace

Events operator+(Events first, const Events& then) {
    first.insert(first.end(), then.begin(), then.end());
    return first;
}

Events Key(int code, Qt::KeyboardModifiers modifiers) {
    return pressAndRelease(code, modifiers, textOf(code, modifiers));
}

Events Text(const QString& text) {
    Events events;
    for (const QChar letter : text)
        events = std::move(events) + pressAndRelease(letter.toUpper().unicode(), {}, letter);
    return events;
}

Events Click(QPoint at, Qt::MouseButton button) {
    return {[=] {
                timestamp += ClickPause;
                mouse(QEvent::MouseButtonPress, at, button);
            },
            [=] { mouse(QEvent::MouseButtonRelease, at, button); }};
}

Events DoubleClick(QPoint at) {
    return Click(at) + Events{[=] { mouse(QEvent::MouseButtonPress, at, Qt::LeftButton); },
                              [=] { mouse(QEvent::MouseButtonRelease, at, Qt::LeftButton); }};
}

Events Drag(QPoint from, QPoint to) {
    return {[=] {
                timestamp += ClickPause;
                mouse(QEvent::MouseButtonPress, from, Qt::LeftButton);
            },
            [=] { mouse(QEvent::MouseMove, from + (to - from) / 3, Qt::LeftButton); },
            [=] { mouse(QEvent::MouseMove, to, Qt::LeftButton); },
            [=] { mouse(QEvent::MouseButtonRelease, to, Qt::LeftButton); }};
}

}  // namespace walk
