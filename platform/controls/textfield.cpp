#include "platform/controls/textfield.h"

#include <algorithm>
#include <QValidator>

#include "platform/controls/fieldnotice.h"
#include "platform/text/plaintext.h"

/// Sees every change of the text, because a line edit asks its validator before each, whatever its source.
class TextField::Guard : public QValidator {
  public:
    explicit Guard(TextField& field) : QValidator(&field), field_(field) {}

    State validate(QString& text, int& cursor) const override {
        field_.guard(text, cursor);
        return Acceptable;
    }

  private:
    TextField& field_;
};

TextField::TextField(QWidget* parent) : QLineEdit(parent), notice_(new FieldNotice(*this)) {
    setValidator(new Guard(*this));
}

void TextField::ShowWhole(const QString& text) {
    whole_ = OneLine(text);
    setText(whole_);
}

QString TextField::Stored() const {
    QString stored = most_ > 0 ? text().left(most_) : text();
    if (stored.size() < text().size() && stored.back().isHighSurrogate())
        stored.chop(1);
    return stored;
}

QString TextField::Notice() const {
    return notice_->Text();
}

// For the field of a combo box, the box passes the loss of focus on.
void TextField::focusOutEvent(QFocusEvent* event) {
    QLineEdit::focusOutEvent(event);
    notice_->Say({});
}

void TextField::guard(QString& text, int& cursor) {
    // A line edit asks again about the text that this guard has just changed.
    if (text == before_)
        return;
    const auto cleaned = [this](const QString& part) {
        QString kept = OneLine(part);
        if (accepts_)
            kept.removeIf([this](QChar letter) { return !accepts_(letter); });
        return kept;
    };
    if (const QString kept = cleaned(text); kept != text) {
        cursor = static_cast<int>(cleaned(text.left(cursor)).size());
        text = kept;
    }
    const bool wasCut = cut(text, cursor);
    before_ = text;
    if (most_ > 0 && text.size() > most_)
        notice_->Say(tr("Only the first %1 characters are kept.").arg(most_));
    else
        notice_->Say(wasCut ? KeptText(most_) : QString());
}

bool TextField::cut(QString& text, int& cursor) const {
    const auto size = static_cast<int>(text.size());
    const int excess = size - std::max(most_, static_cast<int>(before_.size()));
    if (most_ == 0 || excess <= 0 || text == whole_ || (areWhole_ && areWhole_(text)))
        return false;
    int from = std::max(0, cursor - excess);
    // A surrogate pair is not cut in half.
    if (from > 0 && text[from].isLowSurrogate() && text[from - 1].isHighSurrogate())
        --from;
    text.remove(from, std::max(cursor, excess) - from);
    cursor = from;
    return true;
}
