#include "tests/views/dayfixture.h"

#include <QApplication>

CalendarView& DayFixture::open() {
    view_ = makeView();
    view_->resize(1000, 700);
    view_->show();
    QApplication::processEvents();
    return *view_;
}

QStringList DayFixture::info() {
    const auto* list = view_->findChild<ctList*>(QStringLiteral("ctListInfo"));
    QStringList rows;
    for (int row = 0; row < list->RowCount(); ++row)
        rows << list->Cells(row).join(u';');
    return rows;
}
