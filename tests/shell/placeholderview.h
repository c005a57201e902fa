#pragma once

#include <QCloseEvent>
#include <QMenuBar>

#include "shell/mainwindow.h"
#include "shell/viewwindow.h"

/// What happened to the views of one test.
struct ViewLog {
    QStringList events;  ///< "open 1", "reload 1", "close 1", "add 1", ...
    bool canAdd = true;
    bool refusesToClose = false;
    QString menuKey;  ///< Key of the one menu command; none when empty.
};

/// A view that shows nothing and records what the main window asks of it.
class PlaceholderView : public ViewWindow {
    Q_OBJECT

  public:
    PlaceholderView(int number, MainWindow& main, ViewLog& log) : number_(number), main_(main), log_(log) {
        note("open");
        setFocusPolicy(Qt::StrongFocus);
    }

    void FillMenus(QMenuBar& menus) override {
        QAction* command = menus.addMenu(QStringLiteral("&File"))->addAction(QStringLiteral("&Week"));
        command->setObjectName(QStringLiteral("mnuVWeek"));
        command->setShortcut(QKeySequence(log_.menuKey));
        connect(command, &QAction::triggered, this, [this] {
            main_.changeview(View::Week);
            note("menu");  // Touches the view after the change that its own command made.
        });
    }
    void Reload() override { note("reload"); }
    [[nodiscard]] QDate Stepped(QDate from, int direction) const override {
        const int days[] = {1, 7, 30, 1, 0, 1};
        return from.addDays(qint64{direction} * days[number_ - 1]);
    }
    void ApplyPreferences() override { note("preferences"); }
    void FollowMainWindow() override { note("follow"); }
    void AddAppointment() override { note("add"); }
    void PrintSchedule() override { note("print"); }
    [[nodiscard]] bool CanAdd() const override { return log_.canAdd; }
    [[nodiscard]] bool CanPrint() const override { return number_ == 1; }

  protected:
    void closeEvent(QCloseEvent* event) override {
        note("close");
        event->setAccepted(!log_.refusesToClose);
    }

  private:
    void note(const char* what) { log_.events << QStringLiteral("%1 %2").arg(QLatin1String(what)).arg(number_); }

    int number_;
    MainWindow& main_;
    ViewLog& log_;
};
