#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <QString>
#include <vector>

#include "tests/support/scripteddesk.h"
#include "tests/support/testdatabase.h"

class QWidget;
class frmnewpat;

/// The new-patient form on a practice with two providers. Today is March 11, 2026; random numbers are drawn from
/// `drawn`, the last of them for ever.
class NewPatientFixture : public testing::Test {
  protected:
    NewPatientFixture();
    ~NewPatientFixture() override;

    void sql(const char* statement);
    /// One column of the only patient; "(none)" where there is none, "" for null.
    QString stored(const char* column);
    QString episode(const char* column);
    qint64 patients() { return database.number(QStringLiteral("Select Count(*) From patient_info")); }
    qint64 episodes() { return database.number(QStringLiteral("Select Count(*) From incident_hx")); }

    /// Shows the form as its callers do.
    frmnewpat& open();
    /// Types into a field in place of its text, or in a list the first letter of an entry, and leaves it by Tab.
    static void type(QWidget* field, const QString& text);
    /// Fills the required fields: Smith, John, 12/03/1980, Male, Abel.
    static void fillRequired(frmnewpat& form);
    /// Turns the link to the companion on, with provider ABEL paired with 7.
    void linkCompanion();

    TestDatabase database;
    std::unique_ptr<TestDatabase> companion;
    ScriptedDesk desk;
    std::vector<double> drawn{0.5};

  private:
    double draw();

    std::size_t draws_ = 0;
    std::unique_ptr<frmnewpat> form_;
};
