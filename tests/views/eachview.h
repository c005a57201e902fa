#pragma once

#include "tests/views/dayhand.h"
#include "views/frmall.h"
#include "views/frmweekv.h"

enum class Which { Day, Week, All };

/// One of the views that show appointments, at Wednesday, March 11, 2026.
class EachView : public DayHand {
  protected:
    std::unique_ptr<CalendarView> makeView() override {
        if (which == Which::Week)
            return std::make_unique<frmweekv>(main);
        if (which == Which::All)
            return std::make_unique<frmall>(main);
        return std::make_unique<frmsched>(main);
    }
    void openAs(Which view) {
        which = view;
        open();
    }

    Which which = Which::Day;
};
