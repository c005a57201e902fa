#pragma once

#include <optional>
#include <QString>
#include <QStringList>
#include <vector>

namespace mail {

/// An e-mail address, with the name of its owner where one was given. Neither holds a line break or another control
/// character, so that they can stand in a header and in a command to a server as they are.
class Address {
  public:
    /// Reads `anna@example.org`, `Anna Reed <anna@example.org>` or `"Reed, Anna" <anna@example.org>`. Returns nothing
    /// for any other text.
    [[nodiscard]] static std::optional<Address> From(const QString& text);

    /// The owner's name. It is empty where none was given.
    [[nodiscard]] const QString& name() const { return name_; }
    /// The address alone, with its domain as the domain name system writes it ("xn--..." for an international one).
    [[nodiscard]] const QString& address() const { return address_; }
    /// The part after the "@".
    [[nodiscard]] QString domain() const;
    /// Whether the part before the "@" has characters beyond ASCII, which not every server can deliver to.
    [[nodiscard]] bool isInternational() const;

    friend bool operator==(const Address&, const Address&) = default;

  private:
    Address(QString name, QString address) : name_(std::move(name)), address_(std::move(address)) {}

    QString name_;
    QString address_;
};

/// What a user typed into a field for addresses.
struct AddressList {
    std::vector<Address> addresses;
    QStringList refused;         ///< The pieces that are no addresses, as they were typed.
    qsizetype firstRefused = 0;  ///< Where in the text the first of them begins.
};

/// Reads the addresses of a text, which are separated by "," or ";". Neither separates within quotes or angle brackets.
[[nodiscard]] AddressList ReadAddresses(const QString& text);

}  // namespace mail
