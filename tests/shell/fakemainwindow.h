#pragma once

#include <QStringList>

#include "shell/mainwindow.h"

/// Stands for the main window around a single view: holds a date, remembers what the view wrote and asked for.
class FakeMainWindow : public MainWindow {
  public:
    explicit FakeMainWindow(QDate date) : date_(date) {}

    [[nodiscard]] QDate Date() const override { return date_; }
    void SetDate(QDate date) override { date_ = date; }
    void ShowDateText(const QString& text) override { dateText = text; }
    void ShowTitle(const QString& text) override { title = text; }
    void changeview(View view) override { asked << QStringLiteral("changeview %1").arg(static_cast<int>(view) - 1); }
    void cycledate(int direction) override { asked << QStringLiteral("cycledate %1").arg(direction); }
    void GoToToday() override { asked << QStringLiteral("today"); }
    void ToggleTaskPane() override { taskPaneShown_ = !taskPaneShown_; }
    [[nodiscard]] bool TaskPaneShown() const override { return taskPaneShown_; }
    void ToggleHidePatientNames() override { asked << QStringLiteral("hide names"); }
    void SelectProvider() override { asked << QStringLiteral("provider"); }
    void ProviderChosen() override { asked << QStringLiteral("provider chosen"); }
    void ShowPreferences() override { asked << QStringLiteral("preferences"); }
    void ShowHelp() override { asked << QStringLiteral("help"); }
    void OpenBoard() override { asked << QStringLiteral("board"); }
    void WritePanels() override {}
    void Leave() override { asked << QStringLiteral("leave"); }
    [[nodiscard]] const std::vector<SavedView>& SavedViews() const override { return savedViews; }
    [[nodiscard]] QString WhyNoSavedViews() const override { return whyNoSavedViews; }
    void ShowSavedView(int slot) override { asked << QStringLiteral("saved view %1").arg(slot); }
    void SaveThisView() override { asked << QStringLiteral("save this view"); }

    QString dateText;
    QString title;
    QStringList asked;
    std::vector<SavedView> savedViews;
    QString whyNoSavedViews;

  private:
    QDate date_;
    bool taskPaneShown_ = true;
};
