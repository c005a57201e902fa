#pragma once

#include <optional>
#include <QDialog>
#include <vector>

#include "appointments/movement.h"

class QComboBox;
class QLabel;
class QPushButton;
class ctDEdit;
class ctList;

/// What the form moves.
struct MoveRequest {
    ShownAppointment row;
    BookedProvider provider;     ///< Who has it now.
    bool keepsProvider = false;  ///< An Activity of several stays with those who attend it.
};

/// "Move...": the date, the time and the provider to which an appointment is to be moved; its length stays. What is in
/// the way there is listed as soon as the user changes one of them. OK looks once more, and stays in the form when what
/// is in the way has changed since. The form writes nothing; the caller asks where to (Target).
class frmmove : public QDialog {
    Q_OBJECT

  public:
    explicit frmmove(MoveRequest request, QWidget* parent = nullptr);

    /// Where the user wants it; nothing until OK.
    [[nodiscard]] std::optional<MoveTarget> Target() const;
    [[nodiscard]] QSize sizeHint() const override;

    static constexpr int TextColumn = 3;

    QLabel* lblheading = nullptr;  ///< What is moved, on which day, with whom.
    QLabel* lblfrom = nullptr;     ///< Where it is now.
    ctDEdit* ctdate = nullptr;
    ctDEdit* ctstart = nullptr;
    QLabel* lblend = nullptr;
    QComboBox* cboprovider = nullptr;
    QLabel* lblway = nullptr;  ///< Whether anything is in the way, in words.
    ctList* ctList1 = nullptr;
    QPushButton* cmdOk = nullptr;
    QPushButton* cmdcancel = nullptr;

  private:
    // frmmove_layout.cpp
    void buildFields();
    void buildList();
    void layOutForm();

    void loadProviders();
    void showHeading();
    [[nodiscard]] int length() const;
    /// The place in the fields, or nothing while they hold none.
    [[nodiscard]] std::optional<MoveTarget> chosen() const;
    [[nodiscard]] bool isWhereItWas(const MoveTarget& target) const;
    void look();
    void show(const std::vector<MoveObstacle>& obstacles);
    void say(const QString& text);
    [[nodiscard]] bool validate();
    void cmdOk_Click();

    MoveRequest request_;
    std::vector<MoveObstacle> shown_;
    bool unread_ = false;  ///< Whether the last look failed.
};
