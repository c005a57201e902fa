#pragma once

#include "tests/companion/schedulefixture.h"

/// The companion's schedule with a hand on it.
class CommandsFixture : public ScheduleFixture {
  protected:
    frmFHAppts& open() {
        ScheduleFixture::open();
        grid().setFocus();
        settle();
        return *view;
    }
    /// Opens the week of Reed.
    void openWeek() {
        if (view == nullptr)
            open();
        grid().selectRange(ReedColumn, 480, 495);
        view->ShowMode(frmFHAppts::Mode::Week);
        settle();
    }
    [[nodiscard]] QWidget& openView() override { return *view; }
    [[nodiscard]] ctMDay& calendar() override { return grid(); }

    // The index of a row's item, in a column where that is not 0.
    [[nodiscard]] int scheduled(int key, int column = 0) const {
        return indexOf(key, companioncolor::Scheduled, column);
    }
    [[nodiscard]] int charged(int key) const { return indexOf(key, companioncolor::Charged); }
    [[nodiscard]] int meeting(int key, int column = 0) const { return indexOf(key, companioncolor::Event, column); }

    void select(int index) {
        ASSERT_GT(index, 0);
        grid().setSelectedItem(index);
        settle();
    }
    [[nodiscard]] const CalendarItem& at(int index) const { return std::as_const(grid()).Item(index); }
    void expectInformation(const char* text) { desk.expectBox(QString::fromUtf8(text), QStringLiteral("Solvane")); }
    void dragTo(int index, int column, int minute) {
        const QRect rect = grid().ItemRect(index);
        const QPoint grabbed = rect.center();
        const QRect cell = grid().CellRect(column, minute);
        mouseDrag(grabbed, {cell.center().x(), cell.top() + grabbed.y() - rect.top()});
    }
    void dragEdgeTo(int index, int minute) {
        select(index);
        const QRect rect = grid().ItemRect(index);
        const QPoint edge(rect.center().x(), rect.bottom() - 1);
        mouseDrag(edge, {edge.x(), grid().CellRect(1, minute).top()});
    }
};
