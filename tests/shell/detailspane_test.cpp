#include "shell/detailspane.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QLabel>
#include <QPlainTextEdit>

#include "platform/controls/ctlist.h"
#include "session/hiddennames.h"
#include "session/session.h"

namespace {

using About = DetailsPane::About;

/// The pane on its own.
class Details : public testing::Test {
  protected:
    Details() {
        ResetSession();
        pane.resize(300, 500);
        pane.show();
        QApplication::processEvents();
    }
    ~Details() override { ResetSession(); }

    QStringList rows() {
        const auto& list = *pane.findChild<ctList*>(QStringLiteral("ctListInfo"));
        QStringList shown;
        for (int row = 0; row < list.RowCount(); ++row)
            shown << list.ShownCells(row).join(QLatin1Char(';'));
        return shown;
    }
    QPlainTextEdit& noteField() { return *pane.findChild<QPlainTextEdit*>(QStringLiteral("txtnote")); }
    QString note() { return noteField().toPlainText(); }

    DetailsPane pane{QStringLiteral("A&ppointment")};
};

}  // namespace

TEST_F(Details, ListLabelsWithTheirValuesAndTheNoteUnderThem) {
    pane.AddRow("Room", "Blue");
    pane.AddRow({}, "Second floor");
    pane.ShowNote("Note: ", "Bring the forms");
    EXPECT_EQ(rows(), (QStringList{"Room;Blue", ";Second floor"}));
    EXPECT_EQ(note(), "Note: Bring the forms");
    EXPECT_TRUE(noteField().isReadOnly());
    pane.Clear();
    EXPECT_EQ(rows(), QStringList());
    EXPECT_EQ(note(), "");
}

TEST_F(Details, HideAtOnceWhatTellsOfAPatientAndNothingElse) {
    pane.AddRow("Name", "Anna O'Brien", About::Patient);
    pane.AddRow("Room", "Blue");
    pane.ShowNote("Note: ", "Anna brings forms", About::Patient);
    SetNamesHidden(true);
    EXPECT_EQ(rows(), (QStringList{"Name;(hidden)", "Room;Blue"}));
    EXPECT_EQ(note(), "Note: (hidden)");
    SetNamesHidden(false);
    EXPECT_EQ(rows(), (QStringList{"Name;Anna O'Brien", "Room;Blue"}));
    EXPECT_EQ(note(), "Note: Anna brings forms");
}

TEST_F(Details, HideWhatIsFilledInWhileNamesAreHidden) {
    SetNamesHidden(true);
    pane.AddRow("Name", "Anna O'Brien", About::Patient);
    pane.ShowNote("Note: ", "Anna brings forms", About::Patient);
    EXPECT_EQ(rows(), QStringList{"Name;(hidden)"});
    EXPECT_EQ(note(), "Note: (hidden)");
    pane.ShowNote("Note: ", "Bring cake");
    EXPECT_EQ(note(), "Note: Bring cake") << "A note of a meeting tells of nobody.";
    pane.ShowNote("Note: ", {}, About::Patient);
    EXPECT_EQ(note(), "Note: ") << "Where there is no note nothing is hidden.";
}

TEST_F(Details, BreakAnEndlessNoteAnywhere) {
    pane.ShowNote({}, QString(3000, u'x'));
    EXPECT_EQ(noteField().wordWrapMode(), QTextOption::WrapAnywhere);
    pane.ShowNote({}, "one two");
    EXPECT_EQ(noteField().wordWrapMode(), QTextOption::WrapAtWordBoundaryOrAnywhere);
}

TEST_F(Details, HaveRoomForTheViewsOwnPanesUnderThem) {
    auto* tasks = new ctList;
    pane.AddPane("Tas&ks", tasks, 4);
    QApplication::processEvents();
    EXPECT_EQ(pane.count(), 3);
    EXPECT_GT(tasks->mapTo(&pane, QPoint()).y(), noteField().geometry().bottom());
    const auto* caption = qobject_cast<QLabel*>(tasks->parentWidget()->childAt(1, 1));
    ASSERT_NE(caption, nullptr);
    EXPECT_EQ(caption->text(), "Tas&ks");
    EXPECT_EQ(caption->buddy(), tasks);
}
