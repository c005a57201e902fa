#pragma once

#include <QComboBox>

/// A box to choose one row of a companion's table by its name. Each item carries the key of its row, by which it is
/// told from others of the same name. Letters move to the next name that begins with them. The wheel chooses nothing,
/// so that a form can be scrolled over the box.
class KeyedCombo : public QComboBox {
    Q_OBJECT

  public:
    KeyedCombo(const char* name, const QString& accessibleName, QWidget* parent);

    /// Adds a row at the end of the list. A row without a name is shown as its key.
    void AddRow(const QString& name, int key);
    /// Selects the first row of that key, or none. Returns whether there is one.
    bool SelectKey(int key);
    /// The key of the selected row; 0 when none is selected.
    [[nodiscard]] int Key() const { return currentData().toInt(); }

  protected:
    void wheelEvent(QWheelEvent* event) override;
};
