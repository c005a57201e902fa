#include "appointments/patientsearch.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QPushButton>

#include "platform/controls/ctlist.h"
#include "platform/controls/listfilter.h"
#include "platform/desktop/desktop.h"
#include "session/session.h"

namespace {

class EnterKey : public QObject {
  public:
    EnterKey(QLineEdit& field, QPushButton& button) : QObject(&field), button_(button) {
        field.installEventFilter(this);
    }

  protected:
    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() != QEvent::KeyPress)
            return false;
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (key != Qt::Key_Return && key != Qt::Key_Enter)
            return false;
        button_.click();
        return true;
    }

  private:
    QPushButton& button_;
};

}  // namespace

void PressOnEnter(QLineEdit& field, QPushButton& button) {
    new EnterKey(field, button);
}

QString PatientCount(const ctList& list) {
    const QString usage = Session().WordUsage.trimmed();
    const QString word = usage.isEmpty() ? QStringLiteral("patient") : usage.toLower();
    return CountText(list, {word, word + u's'});
}

void FindInPatientList(ctList& list, const QString& text) {
    for (int row = 0; row < list.RowCount() && !text.isEmpty(); ++row) {
        if (!list.ItemText(row).contains(text, Qt::CaseInsensitive))
            continue;
        list.SelectRow(row);
        list.setFocus();
        return;
    }
    MsgBox(QStringLiteral("Name not found."), InformationBox, QStringLiteral("Find"));
}
