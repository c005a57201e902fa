#pragma once

#include <memory>

#include "platform/controls/ctlist.h"
#include "tests/shell/practicefixture.h"
#include "views/frmsched.h"

/// The day view, or another on a ctMDay.
class DayFixture : public PracticeFixture {
  protected:
    /// Opens the view on the date of the main window, 1000 by 700 pixels.
    CalendarView& open();
    /// Which view it is; the day view unless a test is about another.
    [[nodiscard]] virtual std::unique_ptr<CalendarView> makeView() { return std::make_unique<frmsched>(main); }
    [[nodiscard]] frmsched& day() { return dynamic_cast<frmsched&>(*view_); }
    [[nodiscard]] QWidget& openView() override { return *view_; }
    /// The rows of the details, "label;value".
    [[nodiscard]] QStringList info();

    std::unique_ptr<CalendarView> view_;
};
