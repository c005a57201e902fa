#pragma once

#include <QDate>
#include <QDialog>

/// What the Missed Appointment Note opens on.
struct MissedNoteRequest {
    int NoteId = 0;         ///< `sessions.id`; 0 for a new note.
    int ItemKey = 0;        ///< `nkeyid` of the appointment.
    int ItemColor = 0;      ///< `ncolor` of the appointment. It tells the type of a new note.
    QDate date;             ///< The date of a new note.
    bool ReadOnly = false;  ///< Whether the note is only shown.
};

/// The Missed Appointment Note, which tells why an appointment was missed or cancelled.
class frmmsdApt : public QDialog {
    Q_OBJECT

  public:
    explicit frmmsdApt(const MissedNoteRequest& request, QWidget* parent = nullptr);

    /// Whether a note was saved, so that the appointment has one now.
    [[nodiscard]] bool NoteSaved() const { return saved_; }
    [[nodiscard]] const MissedNoteRequest& Request() const { return request_; }

  private:
    const MissedNoteRequest request_;
    bool saved_ = false;
};
