#include "platform/signature/signaturetext.h"

#include <sodium.h>

#include "platform/signature/signaturenumbers.h"

namespace {

constexpr char Version[] = "SVSIG1";
constexpr char KeyPurpose[] = "SVScheduler signature key 1";

constexpr qsizetype NonceLength = crypto_aead_xchacha20poly1305_ietf_NPUBBYTES;
constexpr qsizetype TagLength = crypto_aead_xchacha20poly1305_ietf_ABYTES;
constexpr qsizetype KeyLength = crypto_aead_xchacha20poly1305_ietf_KEYBYTES;
constexpr qsizetype CheckLength = 8;
constexpr auto UrlBase64 = QByteArray::Base64UrlEncoding | QByteArray::OmitTrailingEquals;

const unsigned char* dataOf(const QByteArray& bytes) {
    return reinterpret_cast<const unsigned char*>(bytes.constData());
}

unsigned char* dataOf(QByteArray& bytes) {
    return reinterpret_cast<unsigned char*>(bytes.data());
}

unsigned long long lengthOf(const QByteArray& bytes) {
    return static_cast<unsigned long long>(bytes.size());
}

QByteArray headOf(bool isSealed, SignaturePacking packing) {
    return QByteArray(Version) + (isSealed ? ".2." : ".0.") + QByteArray::number(static_cast<int>(packing)) + '.';
}

QByteArray crc32Of(const QByteArray& bytes) {
    constexpr quint32 Polynomial = 0xEDB88320;
    quint32 rest = 0xFFFFFFFF;
    for (const char byte : bytes) {
        rest ^= static_cast<unsigned char>(byte);
        for (int bit = 0; bit < 8; ++bit)
            rest = (rest & 1) != 0 ? rest >> 1 ^ Polynomial : rest >> 1;
    }
    return QByteArray::number(~rest, 16).rightJustified(CheckLength, '0');
}

QByteArray bytesOf(const Signature& signature, SignaturePacking packing) {
    return packing == SignaturePacking::Differences ? DifferencesOf(signature) : NumbersOf(signature);
}

std::optional<Signature> signatureOf(const QByteArray& bytes, SignaturePacking packing) {
    return packing == SignaturePacking::Differences ? SignatureOfDifferences(bytes) : SignatureOfNumbers(bytes);
}

/// Base64 has spare bits at the end, so that several texts stand for the same bytes. Only one of them is read.
std::optional<QByteArray> bytesOfBase64(const QByteArray& text) {
    const auto decoded = QByteArray::fromBase64Encoding(text, UrlBase64 | QByteArray::AbortOnBase64DecodingErrors);
    if (!decoded || (*decoded).toBase64(UrlBase64) != text)
        return std::nullopt;
    return *decoded;
}

QByteArray sealed(const QByteArray& bytes, const QByteArray& head, const QByteArray& key) {
    [[maybe_unused]] static const int ready = sodium_init();
    QByteArray nonce(NonceLength, 0);
    randombytes_buf(nonce.data(), static_cast<std::size_t>(nonce.size()));
    QByteArray box(bytes.size() + TagLength, 0);
    crypto_aead_xchacha20poly1305_ietf_encrypt(dataOf(box), nullptr, dataOf(bytes), lengthOf(bytes), dataOf(head),
                                               lengthOf(head), nullptr, dataOf(nonce), dataOf(key));
    return nonce + box;
}

std::optional<QByteArray> unsealed(const QByteArray& body, const QByteArray& head, const QByteArray& key) {
    if (body.size() < NonceLength + TagLength || key.size() != KeyLength)
        return std::nullopt;
    const QByteArray box = body.sliced(NonceLength);
    QByteArray bytes(box.size() - TagLength, 0);
    if (crypto_aead_xchacha20poly1305_ietf_decrypt(dataOf(bytes), nullptr, nullptr, dataOf(box), lengthOf(box),
                                                   dataOf(head), lengthOf(head), dataOf(body), dataOf(key)) != 0)
        return std::nullopt;
    return bytes;
}

/// Takes the check and its point off the end of an open text. Returns false where it is missing or wrong.
bool takeCheck(QByteArray& text) {
    if (text.size() <= CheckLength || text[text.size() - CheckLength - 1] != '.')
        return false;
    const QByteArray check = text.right(CheckLength);
    text.chop(CheckLength + 1);
    return crc32Of(text) == check;
}

}  // namespace

QByteArray SealingKey(const QString& keyText) {
    const QByteArray text = keyText.toUtf8();
    const QByteArray purpose(KeyPurpose);
    QByteArray key(KeyLength, 0);
    crypto_generichash(dataOf(key), static_cast<std::size_t>(key.size()), dataOf(text), lengthOf(text), dataOf(purpose),
                       static_cast<std::size_t>(purpose.size()));
    return key;
}

QString WriteSignature(const Signature& signature, SignaturePacking packing, const QByteArray& key) {
    const QByteArray head = headOf(!key.isEmpty(), packing);
    const QByteArray bytes = bytesOf(signature, packing);
    if (!key.isEmpty())
        return QString::fromLatin1(head + sealed(bytes, head, key).toBase64(UrlBase64));
    const QByteArray text = head + bytes.toBase64(UrlBase64);
    return QString::fromLatin1(text + '.' + crc32Of(text));
}

std::optional<Signature> ReadSignature(const QString& text, const QByteArray& key) {
    if (text.size() > MostSignatureText)
        return std::nullopt;
    QByteArray rest = text.toUtf8();
    if (key.isEmpty() && !takeCheck(rest))
        return std::nullopt;
    for (const SignaturePacking packing : {SignaturePacking::Numbers, SignaturePacking::Differences}) {
        const QByteArray head = headOf(!key.isEmpty(), packing);
        if (!rest.startsWith(head))
            continue;
        auto bytes = bytesOfBase64(rest.sliced(head.size()));
        if (bytes && !key.isEmpty())
            bytes = unsealed(*bytes, head, key);
        return bytes ? signatureOf(*bytes, packing) : std::nullopt;
    }
    return std::nullopt;
}
