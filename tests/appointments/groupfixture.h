#pragma once

#include <memory>

#include "appointments/frmgrptx.h"
#include "tests/appointments/editorfixture.h"

/// A practice with two groups, Anger (four members) and Sleep (one), whose appointments are made over Dr. Reed's day of
/// March 11, 2026. Of Anger, Abel and Baker take part on that day; Cole left the day before, and Drew comes the day
/// after.
class GroupFixture : public EditorFixture {
  protected:
    GroupFixture();

    /// Opens the dialog on a new appointment, nine to ten of the day that is shown.
    frmgrptx& openNewGroup();
    /// The same with the group picked from the list.
    frmgrptx& openNewGroup(const QString& group);
    frmgrptx& openGroup(int key);
    /// A stored appointment of Anger, nine to ten in the Annex, with Abel, who attended, and Baker, who did not.
    int groupAppointment();

    void pick(const QString& group);
    void click(QPushButton* button);
    /// Clicks on the box of a column in the row of the member.
    void clickBox(const char* name, int column);
    void clickScheduled(const char* name) { clickBox(name, 1); }
    void clickKept(const char* name) { clickBox(name, 3); }
    [[nodiscard]] int rowOf(const char* name) const;
    /// The rows of the list, "x Abel, Ann k" where both boxes are checked.
    [[nodiscard]] QString listed() const;
    /// The rows of the database in the same way; nobody who is not scheduled has one.
    [[nodiscard]] QString members(int key);
    void run(const QString& statement) { database.connection().Execute(statement); }
    void member(int group, const QString& patient, const QString& from, const QString& until = {});

    std::unique_ptr<frmgrptx> dialog;
    int anger = 0;
    int sleep = 0;

  private:
    int group(const QString& name);
    frmgrptx& open(const EditorRequest& request);
};
