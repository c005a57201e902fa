#include "session/formposition.h"

#include <algorithm>
#include <functional>
#include <numeric>
#include <optional>
#include <QGuiApplication>
#include <QScreen>
#include <QStringList>
#include <QWidget>

#include "platform/desktop/userstore.h"

namespace {

constexpr int Normal = 0;
constexpr int Maximised = 2;
constexpr int VisibleWidth = 80;
constexpr int TitleHeight = 30;
constexpr int FarthestEdge = 32767;     // No desktop is larger.
constexpr QSize SmallestForm(120, 60);  // A smaller window could not be dragged.

struct StoredPlace {
    QRect rect;
    int state = Normal;
};

std::optional<StoredPlace> parsed(const QString& text) {
    const QStringList fields = text.split(u',');
    if (fields.size() != 5)
        return std::nullopt;
    int numbers[5] = {};
    for (int i = 0; i < 5; ++i) {
        bool isNumber = false;
        numbers[i] = std::max(0, fields[i].trimmed().toInt(&isNumber));
        if (!isNumber || numbers[i] > FarthestEdge)
            return std::nullopt;
    }
    return StoredPlace{QRect(numbers[0], numbers[1], numbers[2], numbers[3]), numbers[4]};
}

QList<QRect> freeAreas() {
    QList<QRect> areas;
    for (const QScreen* screen : QGuiApplication::screens())
        areas << screen->availableGeometry();
    return areas;
}

qint64 distance(const QPoint& point, const QRect& area) {
    const qint64 dx = std::max({area.left() - point.x(), 0, point.x() - area.right()});
    const qint64 dy = std::max({area.top() - point.y(), 0, point.y() - area.bottom()});
    return dx * dx + dy * dy;
}

void restore(QWidget& form) {
    const auto place = parsed(ReadUserSetting(form.objectName()));
    if (!place)
        return;
    if (place->state != Normal) {
        form.setWindowState(form.windowState() | Qt::WindowMaximized);
        return;
    }
    if (place->rect.width() < SmallestForm.width() || place->rect.height() < SmallestForm.height())
        return;
    const QRect shown = OnSomeScreen(place->rect, freeAreas());
    form.resize(shown.size());
    form.move(shown.topLeft());
}

void store(const QWidget& form) {
    const bool normal = !form.isMinimized() && !form.isMaximized() && !form.isFullScreen();
    const QPoint corner = normal ? form.pos() : form.normalGeometry().topLeft();
    const QSize size = normal ? form.size() : form.normalGeometry().size();
    WriteUserSetting(form.objectName(), QStringLiteral("%1,%2,%3,%4,%5")
                                            .arg(std::max(0, corner.x()))
                                            .arg(std::max(0, corner.y()))
                                            .arg(std::max(0, size.width()))
                                            .arg(std::max(0, size.height()))
                                            .arg(normal ? Normal : Maximised));
}

}  // namespace

QRect OnSomeScreen(const QRect& wanted, const QList<QRect>& screens) {
    if (screens.isEmpty())
        return wanted;
    const QRect title(wanted.topLeft(), QSize(wanted.width(), TitleHeight));
    const bool inReach = std::any_of(screens.begin(), screens.end(), [&](const QRect& area) {
        const QRect seen = area.intersected(title);
        return seen.width() >= std::min(VisibleWidth, wanted.width()) && seen.height() == TitleHeight;
    });
    // The far edges of a window from a larger desktop would be out of reach.
    const QRect desktop = std::accumulate(screens.begin(), screens.end(), QRect(), std::bit_or<>());
    if (inReach && wanted.width() <= desktop.width() && wanted.height() <= desktop.height())
        return wanted;
    const QRect area = *std::min_element(screens.begin(), screens.end(), [&](const QRect& a, const QRect& b) {
        return distance(wanted.center(), a) < distance(wanted.center(), b);
    });
    QRect moved(wanted.topLeft(), wanted.size().boundedTo(area.size()));
    moved.moveLeft(std::clamp(moved.left(), area.left(), area.right() - moved.width() + 1));
    moved.moveTop(std::clamp(moved.top(), area.top(), area.bottom() - moved.height() + 1));
    return moved;
}

void FormPosition(QWidget& form, FormMode mode) {
    if (mode == FormMode::Get)
        restore(form);
    else
        store(form);
}
