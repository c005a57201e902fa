#pragma once

#include <QAbstractItemView>
#include <QComboBox>
#include <QTest>

/// Drops the list of a box and chooses a row of it by keys, counted from 0.
inline void PickRow(QComboBox& box, int row) {
    box.setFocus();
    box.showPopup();
    QTest::keyClick(box.view(), Qt::Key_Home);
    for (int step = 0; step < row; ++step)
        QTest::keyClick(box.view(), Qt::Key_Down);
    QTest::keyClick(box.view(), Qt::Key_Return);
}
