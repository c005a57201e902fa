#include "session/databasewait.h"

#include <QApplication>
#include <QDialog>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QThread>
#include <QVBoxLayout>
#include <QWindow>

#include "platform/controls/formparts.h"
#include "platform/database/waiting.h"
#include "platform/theme/theme.h"
#include "session/afterroutine.h"

namespace {

class WaitingBox final : public db::Waiting {
  public:
    WaitingBox();
    ~WaitingBox() override;
    [[nodiscard]] bool GoesOn() override;

  private:
    /// Holds back input and timers from everything but the box.
    class Guard final : public QObject {
      public:
        explicit Guard(const QDialog& box) : box_(box) { qApp->installEventFilter(this); }

      protected:
        bool eventFilter(QObject* receiver, QEvent* event) override;

      private:
        /// Whether the receiver belongs to the box, or to a window that opened above it and is answered first.
        [[nodiscard]] bool isInFront(const QObject* receiver) const;

        const QDialog& box_;
    };

    QDialog box_;
    Guard guard_;
    bool givenUp_ = false;
};

WaitingBox::WaitingBox() : box_(QApplication::activeWindow()), guard_(box_) {
    box_.setObjectName(QStringLiteral("waiting"));
    box_.setWindowTitle(QObject::tr("Waiting for the database"));
    box_.setWindowModality(Qt::ApplicationModal);
    auto* text = new QLabel(QObject::tr("Waiting for another desk, or for a server that is slow to answer ..."), &box_);
    // Keys typed before the box appeared must not press the button, so it takes the focus only by Tab or its letter.
    auto* cmdGiveUp = FormButton(QObject::tr("&Give up"), "cmdGiveUp", &box_);
    cmdGiveUp->setAutoDefault(false);
    cmdGiveUp->setFocusPolicy(Qt::TabFocus);
    auto* buttons = ButtonRow({cmdGiveUp});
    auto* column = new QVBoxLayout(&box_);
    column->setContentsMargins(Space(16), Space(16), Space(16), Space(16));
    column->setSpacing(Space(12));
    column->addWidget(text);
    column->addLayout(buttons);
    QObject::connect(cmdGiveUp, &QPushButton::clicked, &box_, &QDialog::reject);
    QObject::connect(&box_, &QDialog::finished, &box_, [this] { givenUp_ = true; });
    box_.show();
    box_.setFocus();
}

WaitingBox::~WaitingBox() {
    if (givenUp_)
        AfterRoutine(&db::AskAboutWaitsAgain);
}

bool WaitingBox::GoesOn() {
    constexpr int milliseconds = 20;
    QCoreApplication::processEvents(QEventLoop::AllEvents, milliseconds);
    return !givenUp_;
}

bool WaitingBox::Guard::eventFilter(QObject* receiver, QEvent* event) {
    switch (event->type()) {
        case QEvent::Timer:  // The timer will fire again.
        case QEvent::KeyPress:
        case QEvent::KeyRelease:
        case QEvent::ShortcutOverride:
        case QEvent::Shortcut:
        case QEvent::InputMethod:
        case QEvent::MouseButtonPress:
        case QEvent::MouseButtonRelease:
        case QEvent::MouseButtonDblClick:
        case QEvent::MouseMove:
        case QEvent::Wheel:
        case QEvent::ContextMenu:
        case QEvent::TouchBegin:
        case QEvent::TouchUpdate:
        case QEvent::TouchEnd:
        case QEvent::DragEnter:
        case QEvent::DragMove:
        case QEvent::Drop:
        case QEvent::Close:
            return !isInFront(receiver);
        default:
            return false;
    }
}

/// Returns the widget to which the window belongs, or null.
const QWidget* topLevelOf(const QObject* window) {
    for (const QWidget* widget : QApplication::topLevelWidgets())
        if (widget->windowHandle() == window)
            return widget;
    return nullptr;
}

bool WaitingBox::Guard::isInFront(const QObject* receiver) const {
    const QWidget* modal = QApplication::activeModalWidget();
    // Once the box has been closed, the window below it is the modal one. That window reacts again when the routine has
    // returned.
    const QWidget& front = modal != nullptr && box_.isVisible() ? *modal : box_;
    if (receiver->isWindowType())
        receiver = topLevelOf(receiver);
    // The front window's own popups, such as the list of a field, are its children too.
    for (; receiver != nullptr; receiver = receiver->parent())
        if (receiver == &front)
            return true;
    return false;
}

}  // namespace

void ShowDatabaseWaits() {
    db::ShowWaiting() = []() -> std::unique_ptr<db::Waiting> {
        if (qApp == nullptr || QThread::currentThread() != qApp->thread())
            return nullptr;
        return std::make_unique<WaitingBox>();
    };
}
