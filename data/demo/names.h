#pragma once

#include <QString>

#include "data/demo/random.h"

namespace demo {

/// An invented person. Any likeness with somebody alive is chance: first and last names are drawn apart, from names of
/// many languages, with apostrophes, hyphens, accents and a few very long ones among them.
struct Person {
    QString first;
    QString last;
    QString middle;  ///< An initial, or empty.
    bool female = false;
};

[[nodiscard]] Person SomePerson(Random& random);

struct Address {
    QString street;  ///< Now and then of two lines.
    QString city;
    QString state;
    QString zip;
};

[[nodiscard]] Address SomeAddress(Random& random);

/// Ten digits with the exchange 555, as the notes product stores a telephone; `extension` puts up to four behind them.
[[nodiscard]] QString SomePhone(Random& random, bool extension = false);

/// "(414) 555-0134": ten digits as the practice's mask shows them, with an extension behind a blank.
[[nodiscard]] QString PhoneText(const QString& digits);

/// "last, first M.", as the calendar shows a patient.
[[nodiscard]] QString DisplayName(const Person& person);

/// An address at a domain that can never receive mail.
[[nodiscard]] QString SomeEmail(const Person& person, Random& random);

}  // namespace demo
