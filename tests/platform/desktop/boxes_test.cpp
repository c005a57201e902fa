#include <gtest/gtest.h>

#include <QApplication>
#include <QDialog>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include "platform/desktop/busypointer.h"
#include "platform/desktop/desktop.h"
#include "platform/desktop/forms.h"
#include "platform/desktop/opendialog.h"
#include "platform/desktop/questions.h"
#include "tests/support/scripteddesk.h"

namespace {

/// The box that is shown, as a user meets it.
QMessageBox& shownBox() {
    return dynamic_cast<QMessageBox&>(*QApplication::activeModalWidget());
}

/// Shows a box and does something with it as soon as it is there.
Answer showing(BoxStyle style, const std::function<void(QMessageBox&)>& act) {
    QTimer::singleShot(0, [act] {
        QMessageBox& box = shownBox();
        act(box);
        if (box.isVisible())
            box.close();
    });
    return MsgBox(QStringLiteral("Text"), style, QStringLiteral("Title"));
}

void press(QMessageBox& box, Qt::Key key) {
    QTest::keyClick(&box, key);
}

class QuestionSteps : public testing::Test {
  protected:
    ~QuestionSteps() override {
        BeforeQuestions([] {});
    }
};

}  // namespace

TEST(MessageBoxes, HaveThePictureAndTheButtonsOfTheirStyle) {
    struct Case {
        BoxStyle style;
        QMessageBox::Icon icon;
        QMessageBox::StandardButtons buttons;
    };
    const QMessageBox::StandardButtons yesNo = QMessageBox::Yes | QMessageBox::No;
    for (const Case& entry :
         {Case{PlainBox, QMessageBox::NoIcon, QMessageBox::Ok},
          Case{InformationBox, QMessageBox::Information, QMessageBox::Ok},
          Case{ExclamationBox, QMessageBox::Warning, QMessageBox::Ok},
          Case{ErrorBox, QMessageBox::Critical, QMessageBox::Ok}, Case{YesNoBox, QMessageBox::Question, yesNo},
          Case{YesNoWarningBox, QMessageBox::Warning, yesNo}}) {
        const Answer answer = showing(entry.style, [&entry](QMessageBox& box) {
            EXPECT_EQ(box.icon(), entry.icon);
            EXPECT_EQ(box.standardButtons(), entry.buttons);
            EXPECT_EQ(box.text(), QStringLiteral("Text"));
            EXPECT_EQ(box.windowTitle(), QStringLiteral("Title"));
            EXPECT_EQ(box.textFormat(), Qt::PlainText);
        });
        EXPECT_EQ(answer, entry.buttons == yesNo ? Answer::No : Answer::Ok) << "Closed by its frame.";
    }
}

TEST(MessageBoxes, EscapeAnswersNoAndEnterWhatKeepsThingsAsTheyAre) {
    EXPECT_EQ(showing(YesNoBox, [](QMessageBox& box) { press(box, Qt::Key_Escape); }), Answer::No);
    EXPECT_EQ(showing(YesNoWarningBox, [](QMessageBox& box) { press(box, Qt::Key_Return); }), Answer::No);
    EXPECT_EQ(showing(YesNoBox, [](QMessageBox& box) { press(box, Qt::Key_Return); }), Answer::Yes);
    EXPECT_EQ(showing(InformationBox, [](QMessageBox& box) { press(box, Qt::Key_Escape); }), Answer::Ok);
}

TEST(MessageBoxes, AQuestionWithFactsShowsThemAsTheyAreAndEnterAnswersNo) {
    for (int time = 0; time < 2; ++time) {
        QTimer::singleShot(0, [] {
            QMessageBox& box = shownBox();
            EXPECT_EQ(box.text(), QStringLiteral("Sure?"));
            EXPECT_EQ(box.informativeText(), QStringLiteral("<b>Smith</b>\nborn 1980"));
            const auto* shown = box.findChild<QLabel*>(QStringLiteral("qt_msgbox_informativelabel"));
            ASSERT_NE(shown, nullptr);
            EXPECT_EQ(shown->textFormat(), Qt::PlainText);
            press(box, Qt::Key_Return);
        });
        EXPECT_EQ(
            AskWithFacts(QStringLiteral("Sure?"), QStringLiteral("<b>Smith</b>\nborn 1980"), QStringLiteral("Title")),
            Answer::No);
    }
    EXPECT_EQ(showing(YesNoBox, [](QMessageBox& box) { EXPECT_EQ(box.informativeText(), QString()); }), Answer::No);
}

TEST(ModalForms, ASmallFormIsWideEnoughForItsTitle) {
    for (int time = 0; time < 2; ++time) {
        QDialog form;
        form.setWindowTitle(QStringLiteral("Search Availability by Appointment Type"));
        QTimer::singleShot(0, &form, [&form] {
            QFont bold = form.font();
            bold.setBold(true);
            EXPECT_GT(form.width(), QFontMetrics(bold).horizontalAdvance(form.windowTitle()));
            form.reject();
        });
        RealDesktop().showModal(form);
    }
}

TEST(ModalForms, AFormOfAFixedWidthKeepsIt) {
    QDialog form;
    form.setWindowTitle(QStringLiteral("Search Availability by Appointment Type"));
    form.setFixedSize(120, 80);
    QTimer::singleShot(0, &form, [&form] {
        EXPECT_EQ(form.width(), 120);
        form.reject();
    });
    RealDesktop().showModal(form);
}

TEST(MessageBoxes, AreAnsweredByTheButtonsTwiceAlike) {
    for (int time = 0; time < 2; ++time) {
        EXPECT_EQ(showing(YesNoBox, [](QMessageBox& box) { box.button(QMessageBox::Yes)->click(); }), Answer::Yes);
        EXPECT_EQ(showing(YesNoWarningBox, [](QMessageBox& box) { box.button(QMessageBox::No)->click(); }), Answer::No);
    }
}

TEST(MessageBoxes, StandOverTheActiveWindow) {
    QWidget window;
    window.show();
    QApplication::setActiveWindow(&window);
    const QWidget* parent = nullptr;
    (void)showing(PlainBox, [&parent](QMessageBox& box) { parent = box.parentWidget(); });
    EXPECT_EQ(parent, &window);
}

TEST(ModalForms, StandOverTheActiveWindowAndTellTheirResult) {
    QWidget window;
    window.show();
    for (const int result : {QDialog::Accepted, QDialog::Rejected}) {
        QApplication::setActiveWindow(&window);
        QDialog form;
        const QWidget* parent = nullptr;
        QTimer::singleShot(0, &form, [&form, &parent, result] {
            EXPECT_TRUE(form.isModal());
            EXPECT_TRUE(OpenDialog::Any());
            parent = form.parentWidget();
            form.done(result);
        });
        EXPECT_EQ(ShowModal(form), result);
        EXPECT_EQ(parent, &window);
        form.setParent(nullptr);
    }
    EXPECT_FALSE(OpenDialog::Any());
}

TEST(ModalForms, AFormThatHasAParentKeepsIt) {
    QWidget window;
    QWidget other;
    window.show();
    other.show();
    QApplication::setActiveWindow(&other);
    QDialog form(&window);
    QTimer::singleShot(0, &form, [&form] { form.accept(); });
    (void)ShowModal(form);
    EXPECT_EQ(form.parentWidget(), &window);
}

TEST(ModalForms, UnderABusyPointerHaveTheNormalOneAndGiveItBackInLayers) {
    const BusyPointer outer;
    {
        const BusyPointer inner;
        QDialog form;
        bool wasNormal = false;
        QTimer::singleShot(0, &form, [&] {
            wasNormal = QGuiApplication::overrideCursor() == nullptr;
            form.accept();
        });
        (void)ShowModal(form);
        EXPECT_TRUE(wasNormal);
        EXPECT_NE(QGuiApplication::overrideCursor(), nullptr);
    }
    EXPECT_NE(QGuiApplication::overrideCursor(), nullptr) << "The outer work goes on.";
}

TEST_F(QuestionSteps, ComeBeforeEveryBoxAndEveryFormAndBeforeNoFileDialog) {
    ScriptedDesk desk;
    int steps = 0;
    BeforeQuestions([&steps] { ++steps; });
    desk.expectBox(QStringLiteral("Sure?"), QStringLiteral("Title"), Answer::Yes);
    (void)MsgBox(QStringLiteral("Sure?"), YesNoBox, QStringLiteral("Title"));
    EXPECT_EQ(steps, 1);
    desk.expectForm("QDialog", [](QDialog& form) { form.accept(); });
    QDialog form;
    EXPECT_EQ(ShowModal(form), QDialog::Accepted);
    EXPECT_EQ(steps, 2);
    desk.chosenFile = QStringLiteral("/tmp/x.pdf");
    EXPECT_EQ(ChooseSaveFile(QStringLiteral("Save"), QStringLiteral("/tmp/a.pdf"), {}), QStringLiteral("/tmp/x.pdf"));
    EXPECT_EQ(steps, 2);
    EXPECT_EQ(desk.proposed, QStringList{QStringLiteral("/tmp/a.pdf")});
}

TEST(Forms, AreFoundByTheirNameWhileTheyAreSeen) {
    QWidget form;
    form.setObjectName(QStringLiteral("frmOnlyHere"));
    EXPECT_EQ(FindForm(QStringLiteral("frmOnlyHere")), nullptr);
    for (int time = 0; time < 2; ++time) {
        form.show();
        EXPECT_EQ(FindForm(QStringLiteral("frmOnlyHere")), &form);
        EXPECT_TRUE(IsFormLoaded(QStringLiteral("frmOnlyHere")));
        form.hide();
        EXPECT_FALSE(IsFormLoaded(QStringLiteral("frmOnlyHere")));
    }
    EXPECT_EQ(FindForm(QStringLiteral("frmonlyhere")), nullptr);
    EXPECT_FALSE(IsFormLoaded({}));
}

TEST(Forms, APartOfAFormIsNone) {
    QWidget form;
    auto* part = new QWidget(&form);
    part->setObjectName(QStringLiteral("frmPart"));
    form.show();
    EXPECT_FALSE(IsFormLoaded(QStringLiteral("frmPart")));
}

TEST(RandomNumbers, LieBetweenNothingAndOneAndDiffer) {
    double least = 1;
    double most = 0;
    for (int draw = 0; draw < 1000; ++draw) {
        const double number = RandomNumber();
        ASSERT_GE(number, 0);
        ASSERT_LT(number, 1);
        least = std::min(least, number);
        most = std::max(most, number);
    }
    EXPECT_LT(least, 0.1);
    EXPECT_GT(most, 0.9);
}

TEST(Clock, IsTheWallsAndKnowsNoChangeOfClocks) {
    const QDateTime before = QDateTime::currentDateTime();
    const QDateTime now = Now();
    EXPECT_EQ(now.timeSpec(), Qt::UTC);
    EXPECT_EQ(now.date(), Today());
    EXPECT_LT(std::abs(QDateTime(before.date(), before.time(), Qt::UTC).secsTo(now)), 60);
}

TEST(Sounds, AMissingFileIsSilence) {
    PlaySound(QStringLiteral("/nowhere/findlist.wav"));
    PlaySound({});
    ScriptedDesk desk;
    PlaySound(QStringLiteral("/somewhere/findlist.wav"));
    EXPECT_EQ(desk.sounds, QStringList{QStringLiteral("/somewhere/findlist.wav")});
}

TEST(Programs, AnAddressIsHandedOnAsItIs) {
    ScriptedDesk desk;
    EXPECT_TRUE(OpenWithShell(QStringLiteral("mailto:a@example.org?subject=b c")));
    EXPECT_EQ(desk.opened, QStringList{QStringLiteral("mailto:a@example.org?subject=b c")});
}

TEST(BoxStyles, AreEqualWhereTheyLookAlike) {
    EXPECT_EQ(PlainBox, BoxStyle{});
    EXPECT_NE(YesNoBox, YesNoWarningBox);
    EXPECT_NE(InformationBox, ErrorBox);
}
