#pragma once

#include <gtest/gtest.h>

#include <QDialog>
#include <QLineEdit>
#include <QPushButton>

#include "session/lastplace.h"
#include "session/session.h"
#include "session/startup.h"
#include "tests/session/practice.h"
#include "tests/support/scripteddesk.h"

// A main window that only notes what start-up asks of it.
class NotedWindow : public StartUpWindow {
  public:
    void RestorePosition() override { calls << "place"; }
    void SetHelpFile(const QString& path) override { helpFile = path; }
    void SetDateOrder(int order) override { calls << QString("date order %1").arg(order); }
    void ShowDateText(const QString& text) override { calls << "date " + text; }
    void ShowMainWindow() override { calls << "show"; }
    void ChooseProvider() override {
        calls << "choose";
        Session().ProviderId = chosenId;
        Session().ProviderName = chosenId.isEmpty() ? QString() : "Chosen";
    }
    void setmenuaccess() override { calls << QString("access %1").arg(Session().ScreenAccess); }
    void WritePanels() override { calls << "panels " + Session().UserName + "/" + Session().ProviderName; }
    void InitTaskPane() override { calls << "task pane " + Session().FHDatabaseId; }
    void MarkReady(QDate today) override { calls << "ready " + today.toString(Qt::ISODate); }
    void MakeScheduleLink() override { calls << "link"; }
    void ReturnTo(const LastPlace& place) override {
        if (place.view != View::None)
            calls << QString("return to %1").arg(static_cast<int>(place.view));
    }
    void ShowDayView() override { calls << QString("day view %1").arg(static_cast<int>(Session().CurrentView)); }
    void changeview(View view) override { calls << QString("changeview %1").arg(static_cast<int>(view) - 1); }

    QStringList calls;
    QString helpFile;
    QString chosenId;
};

class StartingUp : public testing::Test {
  protected:
    StartingUp() { practice.addUser("ANNA", "Adler", 1, "000012003"); }
    bool start(const char* commandLine = "1|ANNA") {
        return StartUp(QString::fromLatin1(commandLine), {practice.path(), practice.file("installation.ini")}, window);
    }
    // Start-up shows the logon and a user types.
    void expectLogon(const char* uid, const char* password) {
        desk.expectForm("frmsvspl", [uid, password](QDialog& form) {
            form.findChild<QLineEdit*>("txtuid")->setText(uid);
            form.findChild<QLineEdit*>("txtpassword")->setText(password);
            form.findChild<QPushButton*>("cmdOk")->click();
        });
    }

    ScriptedDesk desk;
    Practice practice;
    NotedWindow window;
};
