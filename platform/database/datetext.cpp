#include "platform/database/datetext.h"

#include <array>
#include <cmath>
#include <string_view>

namespace db {

namespace {

constexpr int MillisecondsPerDay = 86'400'000;
constexpr int FirstYear = 1753;
constexpr int LastYear = 9999;

struct Number {
    int value = 0;
    int digits = 0;
};

/// Reads the text piece by piece and stops at the first piece that fits nowhere.
class DateReader {
  public:
    explicit DateReader(QByteArrayView text) : at_(text.begin()), end_(text.end()) {}

    std::optional<ServerDateTime> read() {
        skipBlanks();
        while (at_ != end_) {
            if (!readPiece())
                return std::nullopt;
            skipBlanks();
        }
        return result();
    }

  private:
    bool readPiece() {
        if (isLetter(*at_))
            return readWord();
        if (!isDigit(*at_))
            return false;
        const char* start = at_;
        const Number first = readNumber();
        const char next = at_ == end_ ? '\0' : *at_;
        if (next == ':') {
            at_ = start;
            return readTime();
        }
        if (next == '-' || next == '/' || next == '.')
            return readNumericDate(first, next);
        if (first.digits == 8)
            return setDate(first.value / 10000, first.value / 100 % 100, first.value % 100);
        if (first.digits == 6)
            return setDate(fullYear({first.value / 10000, 2}), first.value / 100 % 100, first.value % 100);
        if (const int half = readHalf(); half >= 0)
            return setTime(first.value, 0, 0, 0, half);
        return addNamedNumber(first);
    }

    bool readNumericDate(Number first, char separator) {
        ++at_;
        const Number second = readNumber();
        if (second.digits == 0 || at_ == end_ || *at_ != separator)
            return false;
        ++at_;
        const Number third = readNumber();
        if (third.digits == 0)
            return false;
        if (at_ != end_ && (*at_ == 'T' || *at_ == 't'))
            ++at_;
        if (first.digits == 4)
            return setDate(first.value, second.value, third.value);
        if (third.digits == 3 || third.digits == 1 || third.digits > 4)
            return false;
        return setDate(fullYear(third), first.value, second.value);
    }

    bool readTime() {
        const int hour = readNumber().value;
        int minute = 0;
        int second = 0;
        double thousandths = 0;
        ++at_;
        const Number minutes = readNumber();
        if (minutes.digits == 0 || minutes.digits > 2)
            return false;
        minute = minutes.value;
        if (at_ != end_ && *at_ == ':') {
            ++at_;
            const Number seconds = readNumber();
            if (seconds.digits == 0 || seconds.digits > 2)
                return false;
            second = seconds.value;
            if (at_ != end_ && (*at_ == '.' || *at_ == ':')) {
                const bool fraction = *at_++ == '.';
                const Number rest = readNumber();
                if (rest.digits == 0 || rest.digits > 3)
                    return false;
                thousandths = fraction ? rest.value * std::pow(10.0, 3 - rest.digits) : rest.value;
            }
        }
        skipBlanks();
        return setTime(hour, minute, second, static_cast<int>(thousandths), readHalf());
    }

    /// Returns 0 for AM, 12 for PM and -1 for neither.
    int readHalf() {
        const char* start = at_;
        skipBlanks();
        if (end_ - at_ >= 2 && (at_[1] | 0x20) == 'm' && (end_ - at_ == 2 || !isLetter(at_[2]))) {
            const char letter = static_cast<char>(at_[0] | 0x20);
            if (letter == 'a' || letter == 'p') {
                at_ += 2;
                return letter == 'a' ? 0 : 12;
            }
        }
        at_ = start;
        return -1;
    }

    bool readWord() {
        static constexpr std::array<std::string_view, 12> months = {"january",   "february", "march",    "april",
                                                                    "may",       "june",     "july",     "august",
                                                                    "september", "october",  "november", "december"};
        std::string word;
        while (at_ != end_ && isLetter(*at_))
            word.push_back(static_cast<char>(*at_++ | 0x20));
        if (word.size() < 3 || namedMonth_ != 0)
            return false;
        for (std::size_t i = 0; i < months.size(); ++i)
            if (months[i] == word || months[i].substr(0, 3) == word)
                namedMonth_ = static_cast<int>(i) + 1;
        skipCommas();
        return namedMonth_ != 0;
    }

    /// Takes the day or the year beside a month's name: four digits are the year, otherwise the first number is the
    /// day.
    bool addNamedNumber(Number number) {
        skipCommas();
        int& slot = number.digits == 4 || namedDay_ != 0 ? namedYear_ : namedDay_;
        if (slot != 0 || (number.digits != 4 && number.digits > 2))
            return false;
        slot = &slot == &namedYear_ ? fullYear(number) : number.value;
        return slot != 0;
    }

    /// A year alone means its first day, and a month with its year the first day of the month.
    std::optional<ServerDateTime> result() {
        if (namedMonth_ == 0 && namedDay_ == 0 && namedYear_ != 0)
            namedMonth_ = 1;
        const bool named = namedMonth_ != 0 || namedDay_ != 0;
        if (named && !setDate(namedYear_, namedMonth_, namedDay_ == 0 ? 1 : namedDay_))
            return std::nullopt;
        return ServerDateTime{day_.value_or(ServerEpochJulianDay), time_.value_or(0)};
    }

    bool setDate(int year, int month, int day) {
        const QDate date(year, month, day);
        if (day_ || !date.isValid() || year < FirstYear || year > LastYear)
            return false;
        day_ = date.toJulianDay();
        return true;
    }

    bool setTime(int hour, int minute, int second, int thousandths, int half) {
        constexpr int noon = 12;
        const bool halfFits = half < 0 || (half == 0 ? hour <= noon : hour > 0);
        if (time_ || minute > 59 || second > 59 || hour > 23 || !halfFits)
            return false;
        if (half >= 0 && hour <= noon)
            hour = hour % noon + half;
        time_ = ((hour * 60 + minute) * 60 + second) * 1000 + thousandths;
        return true;
    }

    Number readNumber() {
        Number number;
        while (at_ != end_ && isDigit(*at_) && number.digits < 9) {
            number.value = number.value * 10 + (*at_++ - '0');
            ++number.digits;
        }
        return number;
    }

    static int fullYear(Number year) {
        if (year.digits == 4)
            return year.value;
        return year.value < 50 ? 2000 + year.value : 1900 + year.value;
    }

    void skipBlanks() {
        while (at_ != end_ && (*at_ == ' ' || *at_ == '\t' || *at_ == '\n' || *at_ == '\r'))
            ++at_;
    }
    void skipCommas() {
        while (at_ != end_ && (*at_ == ',' || *at_ == ' '))
            ++at_;
    }
    static bool isDigit(char c) { return c >= '0' && c <= '9'; }
    static bool isLetter(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }

    const char* at_;
    const char* end_;
    std::optional<qint64> day_;
    std::optional<int> time_;
    int namedDay_ = 0;
    int namedMonth_ = 0;
    int namedYear_ = 0;
};

/// Rounds to the nearest three hundredth of a second, which may be the next midnight.
std::optional<ServerDateTime> rounded(qint64 julianDay, int milliseconds) {
    const int ticks = static_cast<int>(std::lround(milliseconds * 0.3));
    int nearest = static_cast<int>(std::lround(ticks / 0.3));
    if (nearest >= MillisecondsPerDay) {
        ++julianDay;
        nearest = 0;
    }
    static const qint64 last = QDate(LastYear, 12, 31).toJulianDay();
    static const qint64 first = QDate(FirstYear, 1, 1).toJulianDay();
    if (julianDay < first || julianDay > last)
        return std::nullopt;
    return ServerDateTime{julianDay, nearest};
}

char* putNumber(char* out, int value, int digits) {
    for (int i = digits - 1; i >= 0; --i) {
        out[i] = static_cast<char>('0' + value % 10);
        value /= 10;
    }
    return out + digits;
}

}  // namespace

std::optional<ServerDateTime> ReadDateTime(QByteArrayView utf8) {
    const auto read = DateReader(utf8).read();
    return read ? rounded(read->julianDay, read->milliseconds) : std::nullopt;
}

std::optional<ServerDateTime> ToServerDateTime(const QDateTime& moment) {
    if (!moment.isValid())
        return std::nullopt;
    return rounded(moment.date().toJulianDay(), moment.time().msecsSinceStartOfDay());
}

QByteArray IsoText(const ServerDateTime& moment) {
    char buffer[24];
    int year = 0;
    int month = 0;
    int day = 0;
    QDate::fromJulianDay(moment.julianDay).getDate(&year, &month, &day);
    char* out = putNumber(buffer, year, 4);
    *out++ = '-';
    out = putNumber(out, month, 2);
    *out++ = '-';
    out = putNumber(out, day, 2);
    if (moment.milliseconds != 0) {
        const int seconds = moment.milliseconds / 1000;
        *out++ = ' ';
        out = putNumber(out, seconds / 3600, 2);
        *out++ = ':';
        out = putNumber(out, seconds / 60 % 60, 2);
        *out++ = ':';
        out = putNumber(out, seconds % 60, 2);
        if (const int thousandths = moment.milliseconds % 1000; thousandths != 0) {
            *out++ = '.';
            out = putNumber(out, thousandths, 3);
        }
    }
    return {buffer, out - buffer};
}

QDateTime ToDateTime(const ServerDateTime& moment) {
    return {QDate::fromJulianDay(moment.julianDay), QTime::fromMSecsSinceStartOfDay(moment.milliseconds), Qt::UTC};
}

}  // namespace db
