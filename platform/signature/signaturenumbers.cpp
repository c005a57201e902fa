#include "platform/signature/signaturenumbers.h"

#include <QList>

namespace {

constexpr qsizetype LongestNumber = 5;  // Digits of LargestExtent.

std::optional<Signature> soundOrNothing(Signature signature) {
    if (signature.strokes.empty() || !IsSound(signature))
        return std::nullopt;
    return signature;
}

// --- The points in full ---

QByteArray numbersOf(const InkPoint& point) {
    QByteArray numbers = QByteArray::number(point.x) + ',' + QByteArray::number(point.y);
    if (point.pressure != EvenPressure)
        numbers += ',' + QByteArray::number(point.pressure);
    return numbers;
}

/// Returns the whole numbers of "12,34,56", or nothing where a part is no number of at most five digits.
std::optional<QList<int>> numbersIn(const QByteArray& text) {
    QList<int> numbers;
    for (const QByteArray& part : text.split(',')) {
        if (part.isEmpty() || part.size() > LongestNumber)
            return std::nullopt;
        int number = 0;
        for (const char digit : part) {
            if (digit < '0' || digit > '9')
                return std::nullopt;
            number = number * 10 + (digit - '0');
        }
        numbers << number;
    }
    return numbers;
}

std::optional<InkPoint> pointOf(const QByteArray& text) {
    const auto numbers = numbersIn(text);
    if (!numbers || numbers->size() < 2 || numbers->size() > 3)
        return std::nullopt;
    return InkPoint{numbers->at(0), numbers->at(1), numbers->value(2, EvenPressure)};
}

std::optional<Stroke> strokeOf(const QByteArray& text) {
    Stroke stroke;
    for (const QByteArray& part : text.split(' ')) {
        const auto point = pointOf(part);
        if (!point)
            return std::nullopt;
        stroke.push_back(*point);
    }
    return stroke;
}

// --- The differences ---

void append(QByteArray& bytes, unsigned number) {
    for (; number >= 0x80; number >>= 7)
        bytes += static_cast<char>(0x80 | (number & 0x7F));
    bytes += static_cast<char>(number);
}

/// Small differences become small numbers, whichever their sign: 0, -1, 1, -2 become 0, 1, 2, 3.
unsigned folded(int difference) {
    return difference < 0 ? static_cast<unsigned>(-difference) * 2 - 1 : static_cast<unsigned>(difference) * 2;
}

int unfolded(unsigned number) {
    const int half = static_cast<int>(number / 2);
    return number % 2 == 0 ? half : -half - 1;
}

/// Reads numbers one after the other. Once the bytes were too few or a number too long, every number is 0.
class NumberReader {
  public:
    explicit NumberReader(const QByteArray& bytes) : bytes_(bytes) {}

    unsigned next() {
        unsigned number = 0;
        for (int shift = 0; shift <= LastShift; shift += 7) {
            if (failed_ || place_ == bytes_.size())
                break;
            const auto byte = static_cast<unsigned char>(bytes_[place_++]);
            number |= static_cast<unsigned>(byte & 0x7F) << shift;
            if (byte < 0x80)
                return number;
        }
        failed_ = true;
        return 0;
    }
    [[nodiscard]] bool hasFailed() const { return failed_; }
    [[nodiscard]] bool isAtEnd() const { return place_ == bytes_.size(); }

  private:
    static constexpr int LastShift = 14;  // Three bytes hold every number of a sound signature.

    const QByteArray& bytes_;
    qsizetype place_ = 0;
    bool failed_ = false;
};

bool isPlace(int units) {
    return units >= 0 && units <= LargestExtent;
}

/// Reads a stroke whose first point is told by its difference from `last`, and leaves its own last point there.
std::optional<Stroke> nextStroke(NumberReader& numbers, InkPoint& last) {
    const unsigned points = numbers.next();
    if (points == 0 || points > MostPoints)
        return std::nullopt;
    Stroke stroke;
    for (unsigned i = 0; i < points; ++i) {
        last.x += unfolded(numbers.next());
        last.y += unfolded(numbers.next());
        last.pressure += unfolded(numbers.next());
        // A point that lies nowhere ends the reading at once, before sums of such points pass the range of int.
        if (numbers.hasFailed() || !isPlace(last.x) || !isPlace(last.y) || !isPlace(last.pressure))
            return std::nullopt;
        stroke.push_back(last);
    }
    return stroke;
}

}  // namespace

QByteArray NumbersOf(const Signature& signature) {
    QByteArray bytes =
        QByteArray::number(signature.extent.width()) + ',' + QByteArray::number(signature.extent.height());
    for (const Stroke& stroke : signature.strokes) {
        char separator = '/';
        for (const InkPoint& point : stroke) {
            bytes += separator + numbersOf(point);
            separator = ' ';
        }
    }
    return bytes;
}

std::optional<Signature> SignatureOfNumbers(const QByteArray& bytes) {
    const QList<QByteArray> parts = bytes.split('/');
    const auto extent = numbersIn(parts.first());
    if (!extent || extent->size() != 2)
        return std::nullopt;
    Signature signature{QSize(extent->at(0), extent->at(1)), {}};
    for (const QByteArray& part : parts.sliced(1)) {
        auto stroke = strokeOf(part);
        if (!stroke)
            return std::nullopt;
        signature.strokes.push_back(std::move(*stroke));
    }
    return soundOrNothing(std::move(signature));
}

QByteArray DifferencesOf(const Signature& signature) {
    QByteArray bytes;
    append(bytes, static_cast<unsigned>(signature.extent.width()));
    append(bytes, static_cast<unsigned>(signature.extent.height()));
    InkPoint last;
    for (const Stroke& stroke : signature.strokes) {
        append(bytes, static_cast<unsigned>(stroke.size()));
        for (const InkPoint& point : stroke) {
            append(bytes, folded(point.x - last.x));
            append(bytes, folded(point.y - last.y));
            append(bytes, folded(point.pressure - last.pressure));
            last = point;
        }
    }
    return bytes;
}

std::optional<Signature> SignatureOfDifferences(const QByteArray& bytes) {
    NumberReader numbers(bytes);
    Signature signature;
    signature.extent.setWidth(static_cast<int>(numbers.next()));
    signature.extent.setHeight(static_cast<int>(numbers.next()));
    InkPoint last;
    while (!numbers.isAtEnd()) {
        auto stroke = nextStroke(numbers, last);
        if (!stroke)
            return std::nullopt;
        signature.strokes.push_back(std::move(*stroke));
    }
    return soundOrNothing(std::move(signature));
}
