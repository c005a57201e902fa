#pragma once

#include <memory>
#include <QAction>

#include "companion/companionitem.h"
#include "companion/frmfhappts.h"
#include "tests/companion/writesfixture.h"

/// The companion's schedule with a hand on it: a column for each of Lane, Moss and Reed, in this order.
class CommandsFixture : public WritesFixture {
  protected:
    static constexpr int Lane = 1, Moss = 2, Reed = 3;  ///< The columns.

    frmFHAppts& open() {
        view_ = std::make_unique<frmFHAppts>(main);
        view_->resize(1280, 800);
        view_->show();
        view_->activateWindow();
        view_->Grid().setFocus();
        settle();
        return *view_;
    }
    /// Opens the week of a column's provider.
    void openWeek(int column = Reed) {
        if (view_ == nullptr)
            open();
        calendar().selectRange(column, 480, 495);
        view_->ShowMode(frmFHAppts::Mode::Week);
        settle();
    }
    [[nodiscard]] QWidget& openView() override { return *view_; }
    [[nodiscard]] ctMDay& calendar() override { return view_->Grid(); }

    /// The index of a row's item, in a column where that is not 0.
    [[nodiscard]] int indexOf(int key, int color, int column = 0) {
        for (int index = 1; index <= calendar().ItemCount(); ++index) {
            const CalendarItem& item = std::as_const(calendar()).Item(index);
            if (item.ItemKey == QString::number(key) && item.ItemColor == color &&
                (column == 0 || calendar().ColumnOfItem(index) == column))
                return index;
        }
        return 0;
    }
    [[nodiscard]] int scheduled(int key, int column = 0) { return indexOf(key, companioncolor::Scheduled, column); }
    [[nodiscard]] int charged(int key) { return indexOf(key, companioncolor::Charged); }
    [[nodiscard]] int event(int key, int column = 0) { return indexOf(key, companioncolor::Event, column); }
    void select(int index) {
        ASSERT_GT(index, 0);
        calendar().setSelectedItem(index);
        settle();
    }
    [[nodiscard]] const CalendarItem& at(int index) { return std::as_const(calendar()).Item(index); }
    void trigger(const char* name) {
        command(name).trigger();
        settle();
    }
    /// The command as the keys and the mouse reach it, past a menu that may be grey.
    void expectInformation(const char* text) { desk.expectBox(QString::fromUtf8(text), QStringLiteral("Solvane")); }
    void dragTo(int index, int column, int minute) {
        const QRect rect = calendar().ItemRect(index);
        const QPoint grabbed = rect.center();
        const QRect cell = calendar().CellRect(column, minute);
        mouseDrag(grabbed, {cell.center().x(), cell.top() + grabbed.y() - rect.top()});
    }
    void dragEdgeTo(int index, int minute) {
        select(index);
        const QRect rect = calendar().ItemRect(index);
        const QPoint edge(rect.center().x(), rect.bottom() - 1);
        mouseDrag(edge, {edge.x(), yOf(minute)});
    }

    std::unique_ptr<frmFHAppts> view_;
};
