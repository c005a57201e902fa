#include "platform/signature/sigplus.h"

#include <algorithm>
#include <cmath>
#include <QAccessible>
#include <QFile>
#include <QKeyEvent>
#include <QPainter>
#include <QStyleOptionFrame>
#include <QTabletEvent>
#include <QTouchEvent>
#include <utility>

#include "platform/signature/signaturepainting.h"
#include "platform/signature/signaturetext.h"
#include "platform/theme/theme.h"

namespace {

constexpr double LeastStep = 1.5;    // Pixels from one point of a stroke to the next.
constexpr double BaseLine = 0.72;    // Share of the pad's height above the line to sign on.
constexpr int LineMargin = 24;       // Step of the spacing grid at both ends of that line.
constexpr QSize HintedSize(32, 10);  // In steps of 16 of the spacing grid.
constexpr QSize LeastSize(12, 4);

int pressureOf(double share) {
    return std::clamp(static_cast<int>(std::lround(share * FullPressure)), 0, FullPressure);
}

InkPoint pointAt(QPointF units, QSize extent, int pressure) {
    return {std::clamp(static_cast<int>(std::lround(units.x())), 0, extent.width()),
            std::clamp(static_cast<int>(std::lround(units.y())), 0, extent.height()), pressure};
}

bool isNear(const InkPoint& one, const InkPoint& other) {
    return std::hypot(one.x - other.x, one.y - other.y) < LeastStep * UnitsPerPixel;
}

QSize extentOf(QSize pixels) {
    return (pixels * UnitsPerPixel).boundedTo(QSize(LargestExtent, LargestExtent)).expandedTo(QSize(1, 1));
}

constexpr double EvenShare = static_cast<double>(EvenPressure) / FullPressure;

}  // namespace

SigPlus::SigPlus(QWidget* parent) : QWidget(parent) {
    setObjectName(QStringLiteral("SigPlus"));
    setAttribute(Qt::WA_AcceptTouchEvents);
    setFocusPolicy(Qt::StrongFocus);
    setCursor(Qt::CrossCursor);
    setMouseTracking(true);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    setAccessibleName(tr("Signature pad"));
    tellAssistants();
}

void SigPlus::Clear() {
    hold(Signature());
}

int SigPlus::PointCount() const {
    return signature_.PointCount();
}

void SigPlus::StartKey() {
    keyText_.clear();
    key_.clear();
}

void SigPlus::SetKeyText(const QString& text) {
    keyText_ += text;
}

void SigPlus::FinishKey() {
    key_ = keyText_.isEmpty() ? QByteArray() : SealingKey(keyText_);
}

void SigPlus::SetEncryptionMode(int mode) {
    encryption_ = mode;
}

void SigPlus::SetCompressionMode(int mode) {
    compression_ = mode;
}

QString SigPlus::SignatureText() const {
    if (PointCount() == 0 || (encryption_ != 0 && key_.isEmpty()))
        return {};
    return WriteSignature(signature_, compression_ == 0 ? SignaturePacking::Numbers : SignaturePacking::Differences,
                          encryption_ == 0 ? QByteArray() : key_);
}

void SigPlus::SetSignatureText(const QString& text) {
    const bool isSealed = encryption_ != 0;
    const bool isReadable = !isSealed || !key_.isEmpty();
    hold(isReadable ? ReadSignature(text, isSealed ? key_ : QByteArray()).value_or(Signature()) : Signature());
}

bool SigPlus::ImportFile(const QString& path) {
    QFile file(path);
    QString text;
    if (file.open(QIODevice::ReadOnly))
        text = QString::fromUtf8(file.read(2 * MostSignatureText));
    text.removeIf([](QChar character) { return character.isSpace(); });
    auto signature = ReadSignature(text, {});
    if (!signature && !key_.isEmpty())
        signature = ReadSignature(text, key_);
    hold(signature.value_or(Signature()));
    return signature.has_value();
}

void SigPlus::SetReadOnly(bool readOnly) {
    finish();
    readOnly_ = readOnly;
    setFocusPolicy(readOnly ? Qt::NoFocus : Qt::StrongFocus);
    setCursor(readOnly ? Qt::ArrowCursor : Qt::CrossCursor);
    tellAssistants();
    update();
}

QSize SigPlus::sizeHint() const {
    return HintedSize * Space(16);
}

QSize SigPlus::minimumSizeHint() const {
    return LeastSize * Space(16);
}

void SigPlus::hold(Signature signature) {
    hand_ = Hand::None;
    signature_ = std::move(signature);
    tellAssistants();
    update();
    Q_EMIT Changed();
}

void SigPlus::begin(Hand hand, QPointF place, double pressure) {
    if (readOnly_ || hand_ != Hand::None || PointCount() >= MostPoints)
        return;
    if (signature_.strokes.empty())
        signature_.extent = extentOf(size());
    hand_ = hand;
    signature_.strokes.emplace_back();
    extend(place, pressure);
}

void SigPlus::extend(QPointF place, double pressure) {
    Stroke& stroke = signature_.strokes.back();
    const QTransform toUnits = UnitsToPixels(signature_.extent, rect()).inverted();
    const InkPoint point = pointAt(toUnits.map(place), signature_.extent, pressureOf(pressure));
    if (PointCount() >= MostPoints || (!stroke.empty() && isNear(stroke.back(), point)))
        return;
    stroke.push_back(point);
    update();
}

void SigPlus::finish() {
    if (std::exchange(hand_, Hand::None) == Hand::None)
        return;
    tellAssistants();
    Q_EMIT Changed();
}

void SigPlus::takeBack() {
    if (hand_ != Hand::None || signature_.strokes.empty())
        return;
    Signature shorter = signature_;
    shorter.strokes.pop_back();
    hold(shorter);
}

void SigPlus::tellAssistants() {
    const QString state = PointCount() > 0 ? tr("Holds a signature.") : tr("Is empty.");
    setAccessibleDescription(
        readOnly_ ? state
                  : state + u' ' +
                        tr("Sign with the mouse, a finger or a pen. Delete clears the pad, Ctrl+Z takes back the last "
                           "stroke."));
}

bool SigPlus::event(QEvent* event) {
    switch (event->type()) {
        case QEvent::TouchBegin:
        case QEvent::TouchUpdate:
        case QEvent::TouchEnd:
        case QEvent::TouchCancel:
            return touched(*static_cast<QTouchEvent*>(event));
        default:
            return QWidget::event(event);
    }
}

/// The first finger writes. Further ones, such as the ball of the hand, are passed over.
bool SigPlus::touched(const QTouchEvent& touch) {
    if (readOnly_)
        return false;
    if (touch.type() == QEvent::TouchCancel && hand_ == Hand::Finger) {
        hand_ = Hand::None;
        takeBack();
        return true;
    }
    for (const QEventPoint& point : touch.points()) {
        if (point.state() == QEventPoint::Pressed && hand_ == Hand::None) {
            finger_ = point.id();
            setFocus(Qt::MouseFocusReason);
            begin(Hand::Finger, point.position(), EvenShare);
        } else if (hand_ == Hand::Finger && point.id() == finger_) {
            extend(point.position(), EvenShare);
            if (point.state() == QEventPoint::Released)
                finish();
        }
    }
    return true;
}

void SigPlus::mousePressEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton)
        begin(Hand::Mouse, event->position(), EvenShare);
}

// A release that another window got is noticed by the next move without the button.
void SigPlus::mouseMoveEvent(QMouseEvent* event) {
    if (hand_ != Hand::Mouse)
        return;
    if ((event->buttons() & Qt::LeftButton) != 0)
        extend(event->position(), EvenShare);
    else
        finish();
}

void SigPlus::mouseReleaseEvent(QMouseEvent* event) {
    if (hand_ != Hand::Mouse || event->button() != Qt::LeftButton)
        return;
    extend(event->position(), EvenShare);
    finish();
}

// Accepted events of a pen make no events of a mouse. The other end of a pen, the eraser, does not write.
void SigPlus::tabletEvent(QTabletEvent* event) {
    event->setAccepted(!readOnly_ && event->pointerType() != QPointingDevice::PointerType::Eraser);
    if (!event->isAccepted())
        return;
    const bool knowsPressure = event->pointingDevice()->hasCapability(QInputDevice::Capability::Pressure);
    const double pressure = knowsPressure ? event->pressure() : EvenShare;
    if (event->type() == QEvent::TabletPress && event->button() == Qt::LeftButton) {
        setFocus(Qt::MouseFocusReason);
        begin(Hand::Pen, event->position(), pressure);
    } else if (event->type() == QEvent::TabletMove && hand_ == Hand::Pen) {
        extend(event->position(), pressure);
    } else if (event->type() == QEvent::TabletRelease && hand_ == Hand::Pen) {
        finish();
    }
}

void SigPlus::keyPressEvent(QKeyEvent* event) {
    if (!readOnly_ && event->matches(QKeySequence::Undo))
        takeBack();
    else if (!readOnly_ && event->key() == Qt::Key_Delete)
        Clear();
    else
        QWidget::keyPressEvent(event);
}

void SigPlus::hideEvent(QHideEvent* event) {
    finish();
    QWidget::hideEvent(event);
}

void SigPlus::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    QStyleOptionFrame frame;
    frame.initFrom(this);
    style()->drawPrimitive(QStyle::PE_PanelLineEdit, &frame, &painter, this);
    if (!readOnly_) {
        const int margin = Space(LineMargin);
        const int line = static_cast<int>(height() * BaseLine);
        painter.setPen(palette().color(QPalette::Mid));
        painter.drawLine(margin, line, width() - margin, line);
        if (signature_.strokes.empty()) {
            painter.setPen(palette().color(QPalette::PlaceholderText));
            painter.drawText(rect().adjusted(margin, line, -margin, 0), Qt::AlignCenter, tr("Sign here"));
        }
    }
    PaintSignature(painter, signature_, rect(), palette().color(QPalette::Text));
}
