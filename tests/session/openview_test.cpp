#include "session/openview.h"

#include <gtest/gtest.h>

#include "session/session.h"

namespace {

class AnyView : public OpenView {
  public:
    AnyView() { registerOpenView(); }

    [[nodiscard]] std::optional<CalendarItem> SelectedItem() const override { return selected; }
    [[nodiscard]] std::optional<SelectedSlot> SelectedTime() const override { return std::nullopt; }
    void DropSelection() override {}

    std::optional<CalendarItem> selected;
};

class ChoosingView : public AnyView {
  public:
    [[nodiscard]] BookedProvider Provider() const override { return {QStringLiteral("LANE"), QStringLiteral("Lane")}; }
};

TEST(OpenViewTest, TheSelectedKeyIsTheOneOfTheViewThatIsOpen) {
    EXPECT_EQ(SelectedItemKey(View::Day), 0);
    AnyView view;
    EXPECT_EQ(SelectedItemKey(View::Day), 0);
    view.selected.emplace().ItemKey = QStringLiteral("4711");
    EXPECT_EQ(SelectedItemKey(View::Day), 4711);
    EXPECT_EQ(SelectedItemKey(View::Week), 4711);
    EXPECT_EQ(SelectedItemKey(View::AllProviders), 4711);
    EXPECT_EQ(SelectedItemKey(View::Month), 0);
    EXPECT_EQ(SelectedItemKey(View::Rooms), 0);
}

TEST(OpenViewTest, AViewThatGoesIsNotTheOpenViewAnyMore) {
    {
        const AnyView view;
        EXPECT_EQ(TheOpenView(), &view);
    }
    EXPECT_EQ(TheOpenView(), nullptr);
}

TEST(OpenViewTest, AViewOpenedBeforeTheOldOneWentStaysTheOpenView) {
    auto old = std::make_unique<AnyView>();
    const AnyView next;
    old.reset();
    EXPECT_EQ(TheOpenView(), &next);
}

TEST(OpenViewTest, BookingsGoToTheSessionsProviderUnlessTheViewChoosesAnother) {
    ResetSession();
    Session().ProviderId = QStringLiteral("REED");
    Session().ProviderName = QStringLiteral("Reed");
    EXPECT_EQ(ProviderOfView().id, QStringLiteral("REED"));
    const AnyView day;
    EXPECT_EQ(ProviderOfView().name, QStringLiteral("Reed"));
    const ChoosingView all;
    EXPECT_EQ(ProviderOfView().id, QStringLiteral("LANE"));
    ResetSession();
}

}  // namespace
