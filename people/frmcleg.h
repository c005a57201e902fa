#pragma once

#include <QDialog>
#include <vector>

#include "people/legendmarks.h"
#include "platform/calendar/item.h"

class QGridLayout;

/// A line of the colour legend: an item as the calendar paints it, and what it means.
struct LegendEntry {
    CalendarItem item;
    QString meaning;
};

/// Returns the lines for the practice's own appointments.
[[nodiscard]] std::vector<LegendEntry> AppointmentLegend();

/// The colour legend: the meaning of each colour of the calendar, painted as the calendar paints it, and beside it what
/// else the calendar draws.
class frmcleg : public QDialog {
    Q_OBJECT

  public:
    explicit frmcleg(const std::vector<LegendEntry>& entries = AppointmentLegend(), QWidget* parent = nullptr,
                     const std::vector<LegendMark>& marks = AppointmentMarks());

  private:
    QGridLayout* makeColors(const std::vector<LegendEntry>& entries);
    QGridLayout* makeMarks(const std::vector<LegendMark>& marks);
};
