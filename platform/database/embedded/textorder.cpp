#include "platform/database/embedded/textorder.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <QChar>
#include <QString>
#include <utility>

#include "platform/database/datetext.h"

namespace db::embedded {

namespace {

constexpr char32_t asciiEnd = 128;

constexpr std::array<unsigned char, asciiEnd> makeLowerAscii() {
    std::array<unsigned char, asciiEnd> table{};
    for (unsigned char c = 0; c < asciiEnd; ++c)
        table[c] = c >= 'A' && c <= 'Z' ? static_cast<unsigned char>(c + ('a' - 'A')) : c;
    return table;
}
constexpr std::array<unsigned char, asciiEnd> lowerAscii = makeLowerAscii();

/// Makes the place of each ASCII character: control characters, the blank, marks in the order of Unicode's collation,
/// digits, letters without their case.
constexpr std::array<unsigned char, asciiEnd> makeAsciiPlaces() {
    constexpr std::string_view marks = " _-,;:!?.'\"()[]{}@*/\\&#%`^+<=>|~$";
    std::array<unsigned char, asciiEnd> places{};
    unsigned char place = 0;
    for (unsigned char c = 0; c < ' '; ++c)
        places[c] = place++;
    places[asciiEnd - 1] = place++;
    for (const char mark : marks)
        places[static_cast<unsigned char>(mark)] = place++;
    for (unsigned char c = '0'; c <= '9'; ++c)
        places[c] = place++;
    for (unsigned char c = 'a'; c <= 'z'; ++c) {
        places[c] = place;
        places[c - ('a' - 'A')] = place++;
    }
    return places;
}
constexpr std::array<unsigned char, asciiEnd> asciiPlaces = makeAsciiPlaces();

/// Returns the place of a character. Marks beyond ASCII stand between the ASCII marks and the digits, letters beyond
/// the Latin ones after z.
char32_t placeOf(char32_t character) {
    constexpr char32_t beyondMarks = 0x200000;
    if (character < asciiEnd) {
        const char32_t place = asciiPlaces[character];
        return place < asciiPlaces['0'] ? place : beyondMarks + place;
    }
    const bool mark = QChar::isPunct(character) || QChar::isSymbol(character);
    return mark ? asciiEnd + character : beyondMarks + asciiEnd + character;
}

/// The letters that a folded character stands for in the order: two for a ligature, otherwise the character itself.
struct Bases {
    char32_t first;
    char32_t second;  ///< 0 where there is none.
};

char32_t withoutAccent(char32_t character) {
    constexpr char32_t firstAccented = 0xC0;
    constexpr char32_t lastAccented = 0x24F;
    static const auto table = [] {
        std::array<char32_t, lastAccented - firstAccented + 1> bases{};
        for (char32_t c = firstAccented; c <= lastAccented; ++c) {
            QString parts = QChar::decomposition(c);
            char32_t base = c;
            while (!parts.isEmpty() && QChar::decompositionTag(base) == QChar::Canonical) {
                base = parts.at(0).unicode();
                parts = QChar::decomposition(base);
            }
            bases[c - firstAccented] = FoldCharacter(base);
        }
        return bases;
    }();
    return character < firstAccented || character > lastAccented ? character : table[character - firstAccented];
}

Bases basesOf(char32_t folded) {
    switch (folded) {
        case U'\u00E6':
            return {U'a', U'e'};
        case U'\u0153':
            return {U'o', U'e'};
        case U'\u00DF':
            return {U's', U's'};
        case U'\u00F8':
            return {U'o', 0};
        case U'\u0142':
            return {U'l', 0};
        case U'\u0111':
            return {U'd', 0};
        default:
            return {withoutAccent(folded), 0};
    }
}

/// Reads a text letter by letter. Ligatures are taken apart.
class BaseReader {
  public:
    explicit BaseReader(std::string_view text) : rest_(text) {}

    [[nodiscard]] bool atEnd() const { return rest_.empty() && waiting_ == 0; }

    char32_t next() {
        if (waiting_ != 0)
            return std::exchange(waiting_, 0);
        written_ = FoldCharacter(TakeCharacter(rest_));
        const Bases bases = basesOf(written_);
        waiting_ = bases.second;
        return bases.first;
    }

    /// Returns the character from which the last letter came.
    [[nodiscard]] char32_t written() const { return written_; }

  private:
    std::string_view rest_;
    char32_t waiting_ = 0;
    char32_t written_ = 0;
};

int compareBeyondAscii(std::string_view a, std::string_view b) {
    BaseReader x(a);
    BaseReader y(b);
    int accents = 0;
    while (!x.atEnd() && !y.atEnd()) {
        const char32_t placeX = placeOf(x.next());
        const char32_t placeY = placeOf(y.next());
        if (placeX != placeY)
            return placeX < placeY ? -1 : 1;
        if (accents == 0 && x.written() != y.written())
            accents = x.written() < y.written() ? -1 : 1;
    }
    if (x.atEnd() != y.atEnd())
        return x.atEnd() ? -1 : 1;
    return accents;
}

/// Whether the text has the exact form that IsoText makes. Such texts sort as bytes.
bool isStoredForm(std::string_view text) {
    constexpr std::size_t day = 10;
    constexpr std::size_t second = 19;
    constexpr std::size_t thousandth = 23;
    if (text.size() != day && text.size() != second && text.size() != thousandth)
        return false;
    if (text[4] != '-' || text[7] != '-' || text[0] < '0' || text[0] > '9')
        return false;
    if (text.size() == day)
        return true;
    if (text[day] != ' ' || text[13] != ':')
        return false;
    if (text.size() == second)
        return text.substr(11) != "00:00:00";
    const char last = text.back();
    return (last == '0' || last == '3' || last == '7') && text.substr(20) != "000";
}

int compareBytes(std::string_view a, std::string_view b) {
    const int order = std::memcmp(a.data(), b.data(), std::min(a.size(), b.size()));
    if (order != 0 || a.size() == b.size())
        return order;
    return a.size() < b.size() ? -1 : 1;
}

QByteArray storedForm(std::string_view text) {
    const QByteArrayView bytes(text.data(), static_cast<qsizetype>(text.size()));
    const auto moment = ReadDateTime(bytes);
    return moment ? IsoText(*moment) : bytes.toByteArray();
}

}  // namespace

char32_t TakeCharacter(std::string_view& utf8) {
    constexpr char32_t broken = 0xFFFD;
    const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(utf8[i]); };
    const unsigned char lead = byte(0);
    if (lead < 0x80) {
        utf8.remove_prefix(1);
        return lead;
    }
    const std::size_t length = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : 2;
    if (lead < 0xC2 || lead > 0xF4 || utf8.size() < length) {
        utf8.remove_prefix(1);
        return broken;
    }
    char32_t character = lead & (0x7Fu >> length);
    for (std::size_t i = 1; i < length; ++i) {
        if ((byte(i) & 0xC0) != 0x80) {
            utf8.remove_prefix(1);
            return broken;
        }
        character = (character << 6) | (byte(i) & 0x3Fu);
    }
    utf8.remove_prefix(length);
    return character;
}

void AppendCharacter(std::string& utf8, char32_t character) {
    if (character < 0x80) {
        utf8.push_back(static_cast<char>(character));
        return;
    }
    const auto tail = [&](int shift) { utf8.push_back(static_cast<char>(0x80 | ((character >> shift) & 0x3F))); };
    if (character < 0x800) {
        utf8.push_back(static_cast<char>(0xC0 | (character >> 6)));
    } else if (character < 0x10000) {
        utf8.push_back(static_cast<char>(0xE0 | (character >> 12)));
        tail(6);
    } else {
        utf8.push_back(static_cast<char>(0xF0 | (character >> 18)));
        tail(12);
        tail(6);
    }
    tail(0);
}

char32_t FoldCharacter(char32_t character) {
    return character < lowerAscii.size() ? lowerAscii[character] : QChar::toLower(character);
}

std::string_view WithoutTrailingBlanks(std::string_view text) {
    while (!text.empty() && text.back() == ' ')
        text.remove_suffix(1);
    return text;
}

int CompareTexts(std::string_view a, std::string_view b) {
    a = WithoutTrailingBlanks(a);
    b = WithoutTrailingBlanks(b);
    const std::size_t common = std::min(a.size(), b.size());
    for (std::size_t i = 0; i < common; ++i) {
        const auto x = static_cast<unsigned char>(a[i]);
        const auto y = static_cast<unsigned char>(b[i]);
        if ((x | y) >= 0x80) {
            // Back to the start of the character: both texts are alike up to here, in bytes but for case.
            while (i > 0 && (static_cast<unsigned char>(a[i]) & 0xC0) == 0x80)
                --i;
            return compareBeyondAscii(a.substr(i), b.substr(i));
        }
        if (asciiPlaces[x] != asciiPlaces[y])
            return asciiPlaces[x] < asciiPlaces[y] ? -1 : 1;
    }
    if (a.size() == b.size())
        return 0;
    return a.size() < b.size() ? -1 : 1;
}

int CompareDateTimes(std::string_view a, std::string_view b) {
    const bool storedA = isStoredForm(a);
    const bool storedB = isStoredForm(b);
    if (storedA && storedB)
        return compareBytes(a, b);
    const QByteArray x = storedA ? QByteArray() : storedForm(a);
    const QByteArray y = storedB ? QByteArray() : storedForm(b);
    return compareBytes(storedA ? a : std::string_view(x.data(), static_cast<std::size_t>(x.size())),
                        storedB ? b : std::string_view(y.data(), static_cast<std::size_t>(y.size())));
}

}  // namespace db::embedded
