#pragma once

#include <functional>
#include <memory>

#include "appointments/frmnore.h"
#include "tests/appointments/appointmentfixture.h"

class CompletingCombo;

/// The view that opens the editors: what a test puts here is what they are asked for.
struct EditorsView {
    std::optional<SelectedSlot> selectedTime;
    QDate shownDate{2026, 3, 11};
    std::optional<BookedProvider> chosenProvider;  ///< Of the all-providers view.
};

/// A practice with every list filled, Dr. Reed's day view open, and Mary Jones as its patient.
class EditorFixture : public AppointmentFixture {
  protected:
    EditorFixture();

    /// Opens the editor on a new entry of a kind, at nine to ten of the day that is shown.
    frmnore& openNew(int kind);
    /// Opens the editor on the row.
    frmnore& openRow(int key, int kind);
    /// What the view asks an editor for: a new entry at the selected time, by default nine to ten of the day, or a row.
    [[nodiscard]] EditorRequest newEntry(int kind) const;
    [[nodiscard]] EditorRequest entryOf(int key, int kind) const;
    /// The row of a kind as the editor itself writes it: nine to ten, in room and location.
    int savedPatientAppointment();
    /// Takes a patient over as the look-up does.
    void choose(const QString& patientId, const QString& name);

    /// One column of the row, as text; "(none)" without the row.
    QString column(const char* name, int key);
    /// "nStartTime-nEndTime yyyy-MM-dd cappttext @ CLOCATION"
    [[nodiscard]] QString stored(int key);
    [[nodiscard]] int rowCount(const char* table);
    [[nodiscard]] int newestKey();
    static void type(QWidget* field, const QString& text);
    static void press(QWidget* field, Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    void clickOk();

    EditorsView view;
    std::unique_ptr<frmnore> form;
    int office = 0;  ///< The key of the room.

  private:
    frmnore& open(const EditorRequest& request);
    void fillLists();
};
