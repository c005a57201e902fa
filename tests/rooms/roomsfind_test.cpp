#include <QAction>
#include <QCheckBox>
#include <QPushButton>

#include "platform/controls/ctlist.h"
#include "platform/printing/printpreview.h"
#include "rooms/frmfroom.h"
#include "tests/rooms/roomsfixture.h"

TEST_F(RoomScheduler, FindListsBookingsOfAllRoomsAndGoesToOne) {
    const int there = book("D'Arcy; review", 900, 960, 2, 0, "2026/05/06");
    book("Another");
    open();
    desk.expectForm("frmfroom", [](QDialog& form) {
        auto& find = dynamic_cast<frmfroom&>(form);
        EXPECT_FALSE(find.cmdfind->isEnabled());
        EXPECT_FALSE(find.cmdprint->isEnabled());
        QTest::keyClicks(find.txtfind, QStringLiteral("\"D'*A;r|cy"));
        EXPECT_EQ(find.txtfind->text(), "D'Arcy");
        find.cmdfind->click();
        ASSERT_EQ(find.ctList1->RowCount(), 1);
        EXPECT_EQ(find.ctList1->SelectedRow(), 0);
        EXPECT_EQ(find.ctList1->Cell(0, 2), "05/06/2026");
        EXPECT_EQ(find.ctList1->Cell(0, 3), "3:00 PM");
        EXPECT_EQ(find.ctList1->Cell(0, 4), "4:00 PM");
        EXPECT_EQ(find.ctList1->Cell(0, 5), "Green");
        find.cmdgoto->click();
        EXPECT_EQ(find.result(), QDialog::Accepted);
    });
    trigger("mnuFind");
    EXPECT_EQ(rooms().currentText(), "Green");
    EXPECT_EQ(date().Date(), QDate(2026, 5, 6));
    EXPECT_EQ(std::as_const(calendar()).Item(calendar().SelectedItem()).ItemKey, QString::number(there));
}

TEST_F(RoomScheduler, FindTakesWildcardsLiterallyAndTellsOfNoHit) {
    book("100 percent");
    open();
    desk.expectForm("frmfroom", [this](QDialog& form) {
        auto& find = dynamic_cast<frmfroom&>(form);
        find.txtfind->setText(QStringLiteral("100%"));
        desk.expectBox(QStringLiteral("No Matching Records."), QStringLiteral("Find"));
        find.cmdfind->click();
        EXPECT_EQ(find.ctList1->RowCount(), 0);
        EXPECT_FALSE(find.cmdgoto->isEnabled());
        EXPECT_EQ(find.txtfind->selectedText(), "100%");
        form.reject();
    });
    trigger("mnuFind");
}

TEST_F(RoomScheduler, AFoundBookingThatIsGoneKeepsTheDialogOpen) {
    const int there = book("Meeting");
    open();
    desk.expectForm("frmfroom", [this, there](QDialog& form) {
        auto& find = dynamic_cast<frmfroom&>(form);
        find.txtfind->setText(QStringLiteral("Meet"));
        find.cmdfind->click();
        otherDesk(QStringLiteral("Delete from roomschedule Where nKeyId = %1").arg(there));
        find.cmdgoto->click();
        EXPECT_FALSE(find.lblcount->text().isEmpty());
        EXPECT_NE(find.result(), QDialog::Accepted);
        form.reject();
    });
    trigger("mnuFind");
}

TEST_F(RoomScheduler, ABookingInARoomAddedSinceIsGoneTo) {
    open();
    run("Insert Into rooms (Room) Values('Attic')");
    book("Upstairs", 540, 600, 3);
    desk.expectForm("frmfroom", [](QDialog& form) {
        auto& find = dynamic_cast<frmfroom&>(form);
        find.txtfind->setText(QStringLiteral("Up"));
        find.cmdfind->click();
        Q_EMIT find.ctList1->RowActivated(0);
    });
    trigger("mnuFind");
    EXPECT_EQ(rooms().currentText(), "Attic");
}

TEST_F(RoomScheduler, WhatWasFoundIsPrintedInATable) {
    book("Staff meeting", 540, 600, 1);
    book("Staff meeting", 600, 660, 2);
    open();
    desk.expectForm("frmfroom", [this](QDialog& form) {
        auto& find = dynamic_cast<frmfroom&>(form);
        EXPECT_FALSE(find.ckselected->isEnabled());
        find.txtfind->setText(QStringLiteral("Staff"));
        find.cmdfind->click();
        for (const int rows : {2, 1}) {
            find.ckselected->setChecked(rows == 1);
            desk.expectForm("frmpreview", [rows](QDialog& preview) {
                const printing::Document& document = preview.findChild<PrintPreview*>()->Document();
                EXPECT_EQ(document.header, "|Room Schedule|");
                EXPECT_EQ(document.footer, "||Page %d");
                const auto& table = std::get<printing::Table>(document.blocks.at(0));
                EXPECT_EQ(table.widths, (std::vector<int>{2880, 1440, 1440, 1440, 2880}));
                EXPECT_EQ(table.titles, (QStringList{"Description", "Date", "Start", "End", "Room"}));
                EXPECT_EQ(table.rows.size(), static_cast<std::size_t>(rows));
                EXPECT_EQ(table.rows[0], (QStringList{"Staff meeting", "03/11/2026", "9:00 AM", "10:00 AM", "Blue"}));
                preview.reject();
            });
            find.cmdprint->click();
        }
        find.ctList1->SelectRow(-1);
        find.cmdprint->click();
        EXPECT_EQ(find.lblcount->text(), "Select the bookings to print.");
        form.reject();
    });
    trigger("mnuFind");
}
