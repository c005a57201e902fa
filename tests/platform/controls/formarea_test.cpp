#include "platform/controls/formarea.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QDialog>
#include <QPushButton>
#include <QScreen>
#include <QScrollBar>
#include <QTest>
#include <QVBoxLayout>

namespace {

/// A form with two fields far apart and a button below them.
class TallForm : public QDialog {
  public:
    explicit TallForm(QSize fieldsSize) {
        auto* fields = new QWidget;
        fields->setMinimumSize(fieldsSize);
        first = new QPushButton(QStringLiteral("First"), fields);
        last = new QPushButton(QStringLiteral("Last"), fields);
        last->move(0, fieldsSize.height() - last->sizeHint().height());
        area = new FormArea(fields, this);
        ok = new QPushButton(QStringLiteral("OK"), this);
        auto* column = new QVBoxLayout(this);
        column->addWidget(area, 1);
        column->addWidget(ok);
        FitToScreen(*this);
    }

    FormArea* area;
    QPushButton* first;
    QPushButton* last;
    QPushButton* ok;
};

}  // namespace

TEST(FormArea, AFormThatFitsShowsAllOfItsFields) {
    TallForm form({300, 200});
    form.show();
    QApplication::processEvents();
    EXPECT_FALSE(form.area->verticalScrollBar()->isVisible());
    EXPECT_FALSE(form.area->horizontalScrollBar()->isVisible());
}

TEST(FormArea, AFormTooTallForTheScreenScrollsAndKeepsItsButtonsInSight) {
    const QSize screen = QGuiApplication::primaryScreen()->availableSize();
    TallForm form({300, screen.height() + 200});
    form.show();
    QApplication::processEvents();
    EXPECT_LE(form.height(), screen.height());
    EXPECT_TRUE(form.rect().contains(form.ok->geometry()));
    EXPECT_TRUE(form.area->verticalScrollBar()->isVisible());
    EXPECT_FALSE(form.area->horizontalScrollBar()->isVisible())
        << "There is room for the scroll bar beside the fields.";
}

TEST(FormArea, TabBringsAFieldIntoSight) {
    TallForm form({300, QGuiApplication::primaryScreen()->availableSize().height() + 200});
    form.show();
    form.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&form));
    form.first->setFocus();
    QTest::keyClick(form.first, Qt::Key_Tab);
    ASSERT_TRUE(form.last->hasFocus());
    EXPECT_FALSE(form.last->visibleRegion().isEmpty());
}

TEST(FormArea, AFieldThatGetsTheFocusByItsLetterComesIntoSight) {
    TallForm form({300, QGuiApplication::primaryScreen()->availableSize().height() + 200});
    form.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&form));
    for (int time = 1; time <= 2; ++time) {
        form.last->setFocus();
        EXPECT_FALSE(form.last->visibleRegion().isEmpty());
        form.first->setFocus();
        EXPECT_FALSE(form.first->visibleRegion().isEmpty());
    }
}

TEST(FormArea, WhatIsClickedStaysUnderThePointer) {
    TallForm form({300, QGuiApplication::primaryScreen()->availableSize().height() + 200});
    form.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&form));
    QScrollBar& bar = *form.area->verticalScrollBar();
    bar.setValue(bar.maximum() - form.last->height() / 2);
    const int before = bar.value();
    const QPoint seen = form.last->mapTo(&form, QPoint(5, 2));
    QTest::mousePress(form.windowHandle(), Qt::LeftButton, {}, seen);
    EXPECT_TRUE(form.last->hasFocus());
    EXPECT_EQ(bar.value(), before);
    QTest::mouseRelease(form.windowHandle(), Qt::LeftButton, {}, seen);
}
