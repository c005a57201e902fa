#include "platform/signature/signaturetext.h"

#include <gtest/gtest.h>

#include <QRandomGenerator>

#include "platform/signature/signaturenumbers.h"
#include "tests/platform/signature/writing.h"

namespace {

const QString ModifiedText = QStringLiteral("2026/03/11 09:05 am");

/// The key of a note that was changed then.
QByteArray key() {
    return SealingKey(ModifiedText);
}

struct Form {
    const char* name;
    SignaturePacking packing;
    bool isSealed;

    [[nodiscard]] QByteArray sealingKey() const { return isSealed ? key() : QByteArray(); }
    [[nodiscard]] QString write(const Signature& signature) const {
        return WriteSignature(signature, packing, sealingKey());
    }
    [[nodiscard]] std::optional<Signature> read(const QString& text) const { return ReadSignature(text, sealingKey()); }
};

std::ostream& operator<<(std::ostream& out, const Form& form) {
    return out << form.name;
}

class SignatureText : public testing::TestWithParam<Form> {};

/// An open text around any body, with the right check.
QString openText(const QByteArray& head, const QByteArray& body) {
    const QByteArray text = head + body.toBase64(QByteArray::Base64UrlEncoding | QByteArray::OmitTrailingEquals);
    quint32 rest = 0xFFFFFFFF;
    for (const char byte : text) {
        rest ^= static_cast<unsigned char>(byte);
        for (int bit = 0; bit < 8; ++bit)
            rest = (rest & 1) != 0 ? rest >> 1 ^ 0xEDB88320 : rest >> 1;
    }
    return QString::fromLatin1(text + '.' + QByteArray::number(~rest, 16).rightJustified(8, '0'));
}

std::optional<Signature> readNumbers(const char* body) {
    return ReadSignature(openText("SVSIG1.0.0.", body), {});
}

}  // namespace

TEST_P(SignatureText, GivesBackEveryStrokePointAndPressure) {
    const auto read = GetParam().read(GetParam().write(aSignature()));
    ASSERT_TRUE(read);
    EXPECT_EQ(*read, aSignature());
}

TEST_P(SignatureText, HoldsNothingThatAStatementOrAListCouldTakeApart) {
    const QString text = GetParam().write(aSignature());
    for (const QChar character : text)
        EXPECT_TRUE(QStringLiteral("-_.").contains(character) ||
                    (character.unicode() < 128 && character.isLetterOrNumber()))
            << int{character.unicode()};
}

TEST_P(SignatureText, IsNoSignatureWithAnyOneCharacterChanged) {
    const Signature small{QSize(100, 50), {{{10, 20, 128}, {30, 40, 128}, {31, 45, 90}}}};
    const QString text = GetParam().write(small);
    ASSERT_EQ(GetParam().read(text), small);
    for (qsizetype i = 0; i < text.size(); ++i) {
        for (const char other : QByteArrayLiteral("AaZz059-_.' \n\xE9")) {
            QString changed = text;
            changed[i] = QLatin1Char(other);
            EXPECT_TRUE(changed == text || !GetParam().read(changed)) << i << ' ' << changed.toStdString();
        }
    }
}

TEST_P(SignatureText, IsNoSignatureWhenItIsCutOrLengthenedAnywhere) {
    const QString text = GetParam().write(aSignature());
    for (qsizetype i = 0; i < text.size(); ++i) {
        EXPECT_FALSE(GetParam().read(text.left(i))) << i;
        EXPECT_FALSE(GetParam().read(text.mid(i + 1))) << i;
        EXPECT_FALSE(GetParam().read(text.left(i) + text.mid(i + 1))) << i;
        EXPECT_FALSE(GetParam().read(text.left(i) + u'A' + text.mid(i))) << i;
    }
    EXPECT_FALSE(GetParam().read(text + u'A'));
    EXPECT_FALSE(GetParam().read(text + u' '));
    EXPECT_FALSE(GetParam().read(text + text));
}

TEST_P(SignatureText, OfTheLongestSignatureCanStillBeRead) {
    const Signature largest = theLargestSignature();
    const QString text = GetParam().write(largest);
    EXPECT_LE(text.size(), MostSignatureText);
    EXPECT_EQ(GetParam().read(text), largest);
}

TEST_P(SignatureText, OfAnyBytesIsNoSignature) {
    QRandomGenerator random(20260311);
    const QString whole = GetParam().write(aSignature());
    for (int round = 0; round < 2000; ++round) {
        QByteArray bytes(static_cast<qsizetype>(random.bounded(400)), 0);
        for (char& byte : bytes)
            byte = static_cast<char>(random.bounded(256));
        EXPECT_FALSE(GetParam().read(QString::fromUtf8(bytes)));
        EXPECT_FALSE(GetParam().read(QString::fromLatin1(bytes)));
        EXPECT_FALSE(GetParam().read(whole.left(11) + QString::fromLatin1(bytes.toBase64())));
    }
    EXPECT_FALSE(GetParam().read({}));
    EXPECT_FALSE(GetParam().read(QStringLiteral(".")));
    EXPECT_FALSE(GetParam().read(QString(QChar(0xD800))));
}

TEST_P(SignatureText, OfTenMegabytesIsNoSignature) {
    EXPECT_FALSE(GetParam().read(QString(10 * 1024 * 1024, u'A')));
    EXPECT_FALSE(GetParam().read(GetParam().write(aSignature()) + QString(10 * 1024 * 1024, u'A')));
}

INSTANTIATE_TEST_SUITE_P(Forms, SignatureText,
                         testing::Values(Form{"OpenNumbers", SignaturePacking::Numbers, false},
                                         Form{"OpenDifferences", SignaturePacking::Differences, false},
                                         Form{"SealedNumbers", SignaturePacking::Numbers, true},
                                         Form{"SealedDifferences", SignaturePacking::Differences, true}),
                         [](const auto& form) { return form.param.name; });

TEST(SealedSignature, OpensUnderItsOwnKeyTextOnly) {
    const QString text = WriteSignature(aSignature(), SignaturePacking::Differences, key());
    for (const char* other : {"2026/03/11 09:06 am", "2026/03/11 09:05 pm", "2026/03/11 09:05 am ", " ", "x"})
        EXPECT_FALSE(ReadSignature(text, SealingKey(QString::fromLatin1(other)))) << other;
    EXPECT_TRUE(ReadSignature(text, SealingKey(ModifiedText)));
}

TEST(SealedSignature, IsNotReadAsAnOpenOneNorAnOpenOneAsSealed) {
    const QString sealed = WriteSignature(aSignature(), SignaturePacking::Differences, key());
    const QString open = WriteSignature(aSignature(), SignaturePacking::Differences, {});
    EXPECT_FALSE(ReadSignature(sealed, {}));
    EXPECT_FALSE(ReadSignature(open, key()));
    EXPECT_FALSE(ReadSignature(open, QByteArray("short")));
}

TEST(SealedSignature, DoesNotShowWhetherTwoSignaturesAreTheSame) {
    EXPECT_NE(WriteSignature(aSignature(), SignaturePacking::Differences, key()),
              WriteSignature(aSignature(), SignaturePacking::Differences, key()));
}

TEST(PackedSignature, TakesAboutHalfTheRoom) {
    Signature written{QSize(8000, 2500), {{}}};
    for (int i = 0; i < 300; ++i)
        written.strokes[0].push_back({2000 + i * 17, 1200 + (i % 40 - 20) * 30, EvenPressure});
    EXPECT_LT(DifferencesOf(written).size() * 100, NumbersOf(written).size() * 55);
}

TEST(OpenSignature, IsReadAsTheHeaderDescribesItToTheServiceThatWritesIt) {
    const auto read = readNumbers("9600,2400/320,800 336,812,140/5000,900");
    ASSERT_TRUE(read);
    EXPECT_EQ(*read, (Signature{QSize(9600, 2400), {{{320, 800, 128}, {336, 812, 140}}, {{5000, 900, 128}}}}));
    // The same, made by another program.
    EXPECT_EQ(
        ReadSignature(QStringLiteral("SVSIG1.0.0.OTYwMCwyNDAwLzMyMCw4MDAgMzM2LDgxMiwxNDAvNTAwMCw5MDA.0e2710d6"), {}),
        read);
}

TEST(OpenSignature, WithPointsThatLieNowhereIsNone) {
    for (const char* body : {"",
                             "/",
                             "100",
                             "100,50",
                             "100,50/",
                             "100,50/1",
                             "100,50/1,2,3,4",
                             "100,50/101,2",
                             "100,50/1,51",
                             "100,50/1,2,256",
                             "100,50/-1,2",
                             "100,50/1,+2",
                             "100,50/1,2 ",
                             "100,50/ 1,2",
                             "100,50/1,2//3,4",
                             "100,50/1.5,2",
                             "0,50/0,0",
                             "100,0/0,0",
                             "65536,50/1,2",
                             "100,50/1,123456",
                             "100,50,9/1,2",
                             "100,50/1,2\n"})
        EXPECT_FALSE(readNumbers(body)) << body;
    EXPECT_TRUE(readNumbers("100,50/100,50,255"));
    EXPECT_TRUE(readNumbers("100,50/0,0,0"));
}

TEST(OpenSignature, WithMorePointsThanAllowedIsNone) {
    const auto withPoints = [](int points) {
        QByteArray body = "100,50/1,2";
        for (int i = 1; i < points; ++i)
            body += " 3,4";
        return readNumbers(body.constData());
    };
    EXPECT_TRUE(withPoints(MostPoints));
    EXPECT_FALSE(withPoints(MostPoints + 1));
}

TEST(OpenSignature, WithDifferencesThatLeadNowhereIsNone) {
    QRandomGenerator random(7);
    for (int round = 0; round < 5000; ++round) {
        QByteArray body(static_cast<qsizetype>(random.bounded(60)), 0);
        for (char& byte : body)
            byte = static_cast<char>(random.bounded(256));
        const auto read = ReadSignature(openText("SVSIG1.0.1.", body), {});
        EXPECT_TRUE(!read || (IsSound(*read) && read->PointCount() > 0));
    }
    for (const QByteArray& body :
         {QByteArray(), QByteArray(1, 10), QByteArray("\x64\x32", 2), QByteArray("\x64\x32\x00", 3),
          QByteArray("\x64\x32\x01\x02\x02", 5), QByteArray("\x64\x32\x01\x01\x00\x00", 6), QByteArray(100000, '\xFF'),
          QByteArray(150000, '\x7F'), QByteArray("\x64\x32", 2) + QByteArray(150000, 0)})
        EXPECT_FALSE(ReadSignature(openText("SVSIG1.0.1.", body), {})) << body.size();
    for (const char* point : {"\xFE\xFF\x7F\x02\x02", "\x02\xFE\xFF\x7F\x02", "\x02\x02\xFE\xFF\x7F"}) {
        const QByteArray manyPoints = QByteArray("\x64\x32\x90\x4E", 4) + QByteArray(point).repeated(10000);
        EXPECT_FALSE(ReadSignature(openText("SVSIG1.0.1.", manyPoints), {})) << "Their sum is beyond the range of int.";
    }
    EXPECT_TRUE(ReadSignature(openText("SVSIG1.0.1.", QByteArray("\x64\x32\x01\x02\x02\x00", 6)), {}));
}
