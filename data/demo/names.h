#pragma once

#include <QString>

#include "data/demo/random.h"

namespace demo {

/// An invented person. Any likeness to a living person is chance: first and last names are drawn separately, from names
/// of many languages, with apostrophes, hyphens, accents and a few very long ones among them.
struct Person {
    QString first;
    QString last;
    QString middle;  ///< An initial, or empty.
    bool female = false;
};

[[nodiscard]] Person SomePerson(Random& random);

struct Address {
    QString street;  ///< Sometimes two lines.
    QString city;
    QString state;
    QString zip;
};

[[nodiscard]] Address SomeAddress(Random& random);

/// Returns ten digits with the exchange 555, as the notes product stores a telephone. With `extension` up to four
/// digits follow.
[[nodiscard]] QString SomePhone(Random& random, bool extension = false);

/// Returns "(414) 555-0134": ten digits in the practice's mask, with an extension after a blank.
[[nodiscard]] QString PhoneText(const QString& digits);

/// Returns "last, first M.", as the calendar shows a patient.
[[nodiscard]] QString DisplayName(const Person& person);

/// Returns an address at a domain that can never receive mail.
[[nodiscard]] QString SomeEmail(const Person& person, Random& random);

}  // namespace demo
