#include "platform/database/resulttable.h"

#include "platform/database/datetext.h"

namespace db {

void ResultTable::appendNull() {
    cells_.push_back(nullCell());
}

void ResultTable::appendInteger(qint64 value) {
    cells_.push_back(integerCell(value));
}

void ResultTable::appendReal(double value) {
    cells_.push_back(realCell(value));
}

void ResultTable::appendText(QByteArrayView utf8) {
    cells_.push_back(textCell(utf8));
}

int ResultTable::rowCount() const {
    return columns_.empty() ? 0 : static_cast<int>(cells_.size() / columns_.size());
}

Field ResultTable::at(int row, int column) const {
    return {*this, cells_[cellIndex(row, column)], columns_[static_cast<std::size_t>(column)].type};
}

void ResultTable::set(int row, int column, const Value& value) {
    cells_[cellIndex(row, column)] = cellOf(value);
}

void ResultTable::appendRow(const std::vector<Value>& row) {
    for (const Value& value : row)
        cells_.push_back(cellOf(value));
}

void ResultTable::removeRow(int row) {
    const auto first = cells_.begin() + static_cast<std::ptrdiff_t>(cellIndex(row, 0));
    cells_.erase(first, first + columnCount());
}

std::size_t ResultTable::cellIndex(int row, int column) const {
    return static_cast<std::size_t>(row) * columns_.size() + static_cast<std::size_t>(column);
}

ResultTable::Cell ResultTable::nullCell() {
    Cell cell{};
    cell.kind = Kind::Null;
    return cell;
}

ResultTable::Cell ResultTable::integerCell(qint64 value) {
    Cell cell{};
    cell.integer = value;
    cell.kind = Kind::Integer;
    return cell;
}

ResultTable::Cell ResultTable::realCell(double value) {
    Cell cell{};
    cell.real = value;
    cell.kind = Kind::Real;
    return cell;
}

ResultTable::Cell ResultTable::textCell(QByteArrayView utf8) {
    Cell cell{};
    cell.offset = text_.size();
    cell.size = static_cast<int>(utf8.size());
    cell.kind = Kind::Text;
    text_.append(utf8.data(), utf8.size());
    return cell;
}

ResultTable::Cell ResultTable::cellOf(const Value& value) {
    if (value.isNull())
        return nullCell();
    if (const auto* number = std::get_if<double>(&value.data()))
        return realCell(*number);
    if (const auto* text = std::get_if<QString>(&value.data()))
        return textCell(text->toUtf8());
    if (const auto* moment = std::get_if<QDateTime>(&value.data())) {
        const auto stored = ToServerDateTime(*moment);
        return stored ? textCell(IsoText(*stored)) : nullCell();
    }
    return integerCell(value.integer());
}

bool Field::isNull() const {
    return cell_->kind == ResultTable::Kind::Null;
}

QByteArrayView Field::utf8() const {
    return QByteArrayView(table_->text_).sliced(cell_->offset, cell_->size);
}

Value Field::textValue() const {
    return QString::fromUtf8(utf8());
}

QString Field::text() const {
    switch (cell_->kind) {
        case ResultTable::Kind::Null:
            return {};
        case ResultTable::Kind::Integer:
            return QString::number(cell_->integer);
        case ResultTable::Kind::Real:
            return NumberText(cell_->real);
        case ResultTable::Kind::Text:
            break;
    }
    if (type_ == ColumnType::DateTime)
        return value().text();
    return textValue().text();
}

qint64 Field::integer() const {
    switch (cell_->kind) {
        case ResultTable::Kind::Null:
            return 0;
        case ResultTable::Kind::Integer:
            return cell_->integer;
        case ResultTable::Kind::Real:
            return WholeNumber(cell_->real);
        case ResultTable::Kind::Text:
            break;
    }
    return textValue().integer();
}

double Field::real() const {
    if (cell_->kind == ResultTable::Kind::Real)
        return cell_->real;
    if (cell_->kind == ResultTable::Kind::Text)
        return textValue().real();
    return static_cast<double>(integer());
}

bool Field::boolean() const {
    return cell_->kind == ResultTable::Kind::Text ? textValue().boolean() : real() != 0;
}

QDate Field::date() const {
    if (cell_->kind != ResultTable::Kind::Text || cell_->size == 0)
        return {};
    const auto read = ReadDateTime(utf8());
    return read ? QDate::fromJulianDay(read->julianDay) : QDate();
}

QDateTime Field::dateTime() const {
    if (cell_->kind != ResultTable::Kind::Text || cell_->size == 0)
        return {};
    const auto read = ReadDateTime(utf8());
    return read ? ToDateTime(*read) : QDateTime();
}

Value Field::value() const {
    if (isNull())
        return {};
    switch (type_) {
        case ColumnType::Integer:
            return cell_->kind == ResultTable::Kind::Text ? textValue() : Value(integer());
        case ColumnType::Real:
            return cell_->kind == ResultTable::Kind::Text ? textValue() : Value(real());
        case ColumnType::Boolean:
            return boolean();
        case ColumnType::DateTime:
            if (const QDateTime moment = dateTime(); moment.isValid())
                return moment;
            break;
        case ColumnType::Text:
            break;
    }
    return cell_->kind == ResultTable::Kind::Text ? textValue() : Value(text());
}

}  // namespace db
