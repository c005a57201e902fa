#include "platform/mail/message.h"

#include <algorithm>

#include "platform/mail/bodytext.h"
#include "platform/mail/headertext.h"

namespace mail {

namespace {

bool isIn(const std::vector<Address>& addresses, const Address& wanted) {
    return std::any_of(addresses.begin(), addresses.end(),
                       [&](const Address& one) { return one.address() == wanted.address(); });
}

QByteArray dateText(const QDateTime& date) {
    return date.toOffsetFromUtc(date.offsetFromUtc()).toString(Qt::RFC2822Date).toLatin1();
}

}  // namespace

std::vector<Address> Recipients(const Message& message) {
    std::vector<Address> all;
    for (const auto* some : {&message.to, &message.cc, &message.bcc})
        for (const Address& address : *some)
            if (!isIn(all, address))
                all.push_back(address);
    return all;
}

const Address* InternationalAddress(const Message& message) {
    if (message.from.isInternational())
        return &message.from;
    for (const auto* some : {&message.to, &message.cc, &message.bcc})
        for (const Address& address : *some)
            if (address.isInternational())
                return &address;
    return nullptr;
}

QByteArray MessageText(const Message& message, const QDateTime& date, const QByteArray& id) {
    const BodyText body = EncodeBody(message.text);
    return "Date: " + dateText(date) + "\r\n" + AddressHeader("From", {message.from}) +
           AddressHeader("To", message.to) + AddressHeader("Cc", message.cc) + TextHeader("Subject", message.subject) +
           "Message-ID: <" + id + '@' + message.from.domain().toLatin1() + ">\r\n" + "MIME-Version: 1.0\r\n" +
           "Content-Type: text/plain; charset=utf-8\r\n" + "Content-Transfer-Encoding: " + body.encoding + "\r\n\r\n" +
           body.lines;
}

}  // namespace mail
