#include "platform/desktop/opendialog.h"

#include <QAbstractButton>
#include <QApplication>
#include <QEvent>
#include <QSignalBlocker>

namespace {

bool standsBehind(const QObject* receiver) {
    const QObject* modal = QApplication::activeModalWidget();
    while (receiver != nullptr && receiver != modal)
        receiver = receiver->parent();
    return modal != nullptr && receiver == nullptr;
}

class Gate : public QObject {
  public:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::Shortcut)
            return standsBehind(watched);
        if (event->type() != QEvent::Timer)
            return false;
        auto* button = qobject_cast<QAbstractButton*>(watched);
        if (button == nullptr || !standsBehind(button))
            return false;
        endPress(*button, *event);
        return true;
    }

  private:
    // The press must be ended inside the button, because the button would otherwise click as soon as the dialog has
    // closed.
    static void endPress(QAbstractButton& button, QEvent& timer) {
        const QSignalBlocker nobodyHears(button);
        const bool checked = button.isChecked();
        static_cast<QObject&>(button).event(&timer);
        button.setChecked(checked);
    }
};

Gate gate;
int openDialogs = 0;

}  // namespace

OpenDialog::OpenDialog() {
    if (openDialogs++ == 0)
        qApp->installEventFilter(&gate);
}

OpenDialog::~OpenDialog() {
    if (--openDialogs == 0)
        qApp->removeEventFilter(&gate);
}

bool OpenDialog::Any() {
    return openDialogs > 0;
}
