#pragma once

#include <functional>
#include <QValidator>

/// Lets only some characters into a text box, whether typed, pasted or dropped: the others are left out and the rest
/// stays. A text that stood in the box before the filter was set is only filtered once the user changes it.
class CharacterFilter : public QValidator {
    Q_OBJECT

  public:
    CharacterFilter(std::function<bool(QChar)> accepts, QObject* parent);

    State validate(QString& text, int& cursor) const override;

  private:
    std::function<bool(QChar)> accepts_;
};
