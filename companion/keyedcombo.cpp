#include "companion/keyedcombo.h"

#include <QWheelEvent>

#include "companion/companionfields.h"
#include "platform/text/plaintext.h"

namespace {

constexpr int LeastCharacters = 32;

}  // namespace

KeyedCombo::KeyedCombo(const char* name, const QString& accessibleName, QWidget* parent) : QComboBox(parent) {
    setObjectName(QLatin1String(name));
    setAccessibleName(accessibleName);
    setSizeAdjustPolicy(AdjustToMinimumContentsLengthWithIcon);
    setMinimumContentsLength(LeastCharacters);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

void KeyedCombo::AddRow(const QString& name, int key) {
    addItem(OneLine(NameOrKey(name, key)), key);
}

bool KeyedCombo::SelectKey(int key) {
    setCurrentIndex(findData(key));
    return currentIndex() >= 0;
}

void KeyedCombo::wheelEvent(QWheelEvent* event) {
    event->ignore();
}
