#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <optional>
#include <QAction>
#include <QTemporaryDir>
#include <QToolButton>

#include "platform/controls/ctdate.h"
#include "platform/controls/cttaskpane.h"
#include "platform/desktop/userstore.h"
#include "session/session.h"
#include "shell/mdisched.h"
#include "tests/shell/placeholderview.h"
#include "tests/support/scripteddesk.h"
#include "tests/support/testdatabase.h"

/// The main window at Wednesday, March 11, 2026 with placeholder views, for a user who may see all schedules.
class MainWindowFixture : public testing::Test {
  protected:
    MainWindowFixture() {
        ResetSession();
        SetUserStoreFile(folder.filePath(QStringLiteral("places.ini")));
        SessionValues& session = Session();
        session.UID = QStringLiteral("REED");
        session.UserName = QStringLiteral("Reed");
        session.ProviderId = session.UID;
        session.ProviderName = QStringLiteral("Reed");
        session.ScreenAccess = 3;
        session.AllProviders = true;
        session.AppPath = QStringLiteral("/practice");
    }
    ~MainWindowFixture() override {
        window.reset();
        ResetSession();
        SetUserStoreFile({});
    }

    /// The companion is there, and Reed has a counterpart in it.
    void pairWithCompanion() {
        Session().FHDatabaseId = QStringLiteral("FH1");
        paired.emplace();
        Session().Connection.Open(paired->connectionText());
        paired->connection().Execute(QStringLiteral(
            "Insert into FHDataPairs (FHDataList, FHDatabase, FHDataValue, SVDataValue) Values (1, 'FH1', 7, 'REED')"));
    }

    /// Makes the window with those views and brings it to where start-up ends, with the day view open.
    mdisched& start(const std::vector<View>& views = {View::Day, View::Week, View::Month, View::AllProviders,
                                                      View::Rooms, View::Companion}) {
        ViewFactories factories;
        for (const View view : views)
            factories[view] = [this, view](MainWindow& main) {
                return std::make_unique<PlaceholderView>(static_cast<int>(view), main, log);
            };
        return startWith(std::move(factories));
    }
    mdisched& startWith(ViewFactories factories) {
        window = std::make_unique<mdisched>(std::move(factories));
        window->RestorePosition();
        window->SetDateOrder(0);
        window->ShowMainWindow();
        window->setmenuaccess();
        window->WritePanels();
        window->InitTaskPane();
        window->MarkReady(Today());
        if (Session().AllProviders)
            window->MakeScheduleLink();
        Session().CurrentView = View::Day;
        window->ShowDayView();
        QApplication::processEvents();
        return *window;
    }

    template <typename Widget>
    Widget& the(const char* name) {
        auto* widget = window->findChild<Widget*>(QString::fromLatin1(name));
        if (widget == nullptr)
            throw std::logic_error(name);
        return *widget;
    }
    QToolButton& button(const char* name) { return the<QToolButton>(name); }
    ctTaskPane& pane() { return the<ctTaskPane>("taskpane"); }
    ctDate& calendar() { return the<ctDate>("ctDate1"); }
    /// What happened since the last call.
    QStringList events() { return std::exchange(log.events, {}); }

    QTemporaryDir folder;
    std::optional<TestDatabase> paired;
    ScriptedDesk desk;
    ViewLog log;
    std::unique_ptr<mdisched> window;
};
