#include <QApplication>
#include <QPainter>
#include <QPixmap>
#include <QWheelEvent>

#include "benchmarks/benches.h"
#include "platform/calendar/ctmday.h"

namespace {

constexpr int columns = 300;
constexpr int itemsPerColumn = 30;
const QSize screen(1240, 720);

// The limit of a frame: as many plain rectangles as a screen of the calendar shows cards, with nothing in them.
void bareFrame(benchmark::State& state) {
    QPixmap pixmap(screen);
    for (auto _ : state) {
        QPainter painter(&pixmap);
        painter.fillRect(pixmap.rect(), Qt::white);
        painter.setRenderHint(QPainter::Antialiasing);
        for (int card = 0; card < 10 * itemsPerColumn; ++card) {
            painter.setBrush(QColor::fromHsv(card % 360, 60, 240));
            painter.drawRoundedRect(QRectF(card % 10 * 124.0, card / 10 * 24.0, 116, 20), 4, 4);
        }
    }
}

void fill(ctMDay& calendar) {
    calendar.setDate(QDate(2026, 3, 11));
    calendar.ClearColumns();
    for (int column = 1; column <= columns; ++column)
        calendar.AddColumn(QStringLiteral("Provider %1").arg(column));
    for (int i = 0; i < columns * itemsPerColumn; ++i) {
        const int start = 480 + i % itemsPerColumn * 20;
        const int index =
            calendar.AddItem(start, start + 20, {}, QStringLiteral("Patient %1, Anna").arg(i), QString::number(i));
        calendar.Item(index).ItemColumn = i / itemsPerColumn + 1;
        calendar.Item(index).ItemColor = i % 3 ? 0xFF0001 : 0xC000;
    }
    calendar.setVisibleColumns(10);
}

// One notch of the wheel, down the day and along the providers in turn, and the frame that follows.
void ourFrame(benchmark::State& state) {
    ctMDay calendar;
    calendar.resize(screen);
    fill(calendar);
    calendar.show();
    QApplication::processEvents();
    const QPointF centre = calendar.rect().center();
    int round = 0;
    for (auto _ : state) {
        const bool along = round % 2 != 0;
        const int notch = round / 20 % 2 == 0 ? -120 : 120;
        QWheelEvent wheel(centre, calendar.mapToGlobal(centre), {}, {0, notch}, Qt::NoButton,
                          along ? Qt::ShiftModifier : Qt::NoModifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(&calendar, &wheel);
        QApplication::processEvents();
        ++round;
    }
}

// The whole calendar painted anew, as after a reload.
void ourRepaint(benchmark::State& state) {
    ctMDay calendar;
    calendar.resize(screen);
    fill(calendar);
    calendar.show();
    QApplication::processEvents();
    QPixmap pixmap(screen);
    for (auto _ : state)
        calendar.render(&pixmap);
}

}  // namespace

void RegisterScrollBenches() {
    benchmark::RegisterBenchmark("300 columns of 30, one notch/9000/bare", bareFrame)->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark("300 columns of 30, one notch/9000/ours", ourFrame)->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark("300 columns of 30, all anew/9000/bare", bareFrame)->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark("300 columns of 30, all anew/9000/ours", ourRepaint)->Unit(benchmark::kMillisecond);
}
