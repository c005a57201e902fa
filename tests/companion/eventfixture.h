#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <QWidget>

#include "companion/frmfhevents.h"
#include "tests/support/scripteddesk.h"
#include "tests/support/testdatabase.h"

class QPushButton;

/// A companion with the providers Lane, O'Brien, Quintana and Reed, whose calendar the user 4711 works on, and the form
/// of its events.
class EventFixture : public testing::Test {
  protected:
    EventFixture();

    /// Opens the form on a new event, in the column of Reed at nine to ten of March 11, 2026.
    frmFHEvents& openNew();
    frmFHEvents& open(const CompanionEventRequest& request);
    frmFHEvents& openEvent(int ceveid);
    /// A new event that lacks nothing.
    frmFHEvents& openFilled();
    /// The huddle of March 11, 2026, from nine to half past nine, which ends on March 13 and reminds 15 minutes before.
    int huddle(const QList<int>& attendees);

    static void type(QWidget* field, const QString& text);
    static void press(QWidget* field, Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    void clickAttendee(const char* name);
    void ok();
    void clickDelete();
    /// A box of the form with this message, "Select ...", after OK; the focus is then in the field.
    void expectRefusal(const char* message, QWidget* field);

    void run(const QString& statement) { companion.connection().Execute(statement); }
    /// "name|date|minutes|duration|all day|all providers"
    [[nodiscard]] QString stored(int ceveid);
    /// One column of the event, as text.
    [[nodiscard]] QString column(const char* name, int ceveid);
    [[nodiscard]] int newestKey();
    /// The attendees in the order of their keys, "1 3".
    [[nodiscard]] QString attendees(int ceveid);
    /// The companion is away from now on; gives what is said of that.
    QString loseCompanion();

    static constexpr int Lane = 1, OBrien = 2, Quintana = 3, Reed = 4;
    const QDate day{2026, 3, 11};
    ScriptedDesk desk;
    TestDatabase companion{SchemaScript::Companion};
    std::unique_ptr<frmFHEvents> form;
};
