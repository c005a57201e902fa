#include "session/listfiller.h"

#include <algorithm>
#include <utility>

#include "platform/controls/ctlist.h"

namespace {

constexpr int PieceRows = 2000;

/// Moves `all` past its first rows where they are the ones that `first` holds, and returns how many they are. Otherwise
/// `all` stays at its beginning, and the answer is 0.
int skipSame(db::Recordset& all, db::Recordset& first) {
    const auto isSame = [&] {
        for (int column = 0; column < static_cast<int>(first.Columns().size()); ++column)
            if (all[column].text() != first[column].text())
                return false;
        return true;
    };
    for (first.MoveFirst(); !first.Eof(); first.MoveNext(), all.MoveNext())
        if (all.Eof() || !isSame()) {
            all.MoveFirst();
            return 0;
        }
    return first.RecordCount();
}

}  // namespace

ListFiller::ListFiller(ctList& list, QObject* parent) : QObject(parent), list_(list) {
    timer_.setInterval(0);
    connect(&timer_, &QTimer::timeout, this, &ListFiller::addNext);
}

void ListFiller::Clear() {
    timer_.stop();
    StopSeeking();
    rows_.Close();
    readAll_ = nullptr;
    failed_ = nullptr;
    cutShort_ = false;
    list_.Clear();
    loaded_ = 0;
    total_ = 0;
    Q_EMIT Progress(0, 0);
}

void ListFiller::Fill(db::Recordset rows, AddRow addRow) {
    Clear();
    begin(std::move(rows), std::move(addRow));
}

void ListFiller::Fill(const Read& read, AddRow addRow, Failed failed) {
    Clear();
    db::Recordset first = read(FirstRows);
    if (first.RecordCount() >= FirstRows) {
        readAll_ = read;
        failed_ = std::move(failed);
    }
    begin(std::move(first), std::move(addRow));
}

void ListFiller::begin(db::Recordset rows, AddRow addRow) {
    rows_ = std::move(rows);
    addRow_ = std::move(addRow);
    total_ = rows_.RecordCount();
    addPiece(PieceRows);
}

void ListFiller::Finish() {
    if (readAll_)
        readRest();
    if (IsFilling())
        addPiece(total_ - loaded_);
}

void ListFiller::addNext() {
    if (readAll_)
        readRest();
    else
        addPiece(PieceRows);
}

void ListFiller::readRest() {
    const Read read = std::exchange(readAll_, nullptr);
    const Failed failed = std::exchange(failed_, nullptr);
    try {
        db::Recordset all = read(0);
        loaded_ = skipSame(all, rows_);
        rows_ = std::move(all);
    } catch (const db::DatabaseError& error) {
        cutShort_ = true;
        addPiece(0);
        failed(error);
        return;
    }
    const QVariant selected = list_.ItemData(list_.SelectedRow());
    if (loaded_ == 0)
        list_.Clear();
    total_ = rows_.RecordCount();
    addPiece(PieceRows);
    if (list_.SelectedRow() < 0 && selected.isValid())
        list_.SelectRow(list_.FindItemData(selected));
}

void ListFiller::Seek(std::function<bool(int)> fits, std::function<void(int)> found) {
    fits_ = std::move(fits);
    found_ = std::move(found);
    seekFrom(0);
}

void ListFiller::StopSeeking() {
    fits_ = nullptr;
    found_ = nullptr;
}

void ListFiller::addPiece(int rows) {
    const int first = list_.RowCount();
    const int end = std::min(loaded_ + rows, total_);
    for (; loaded_ < end; ++loaded_, rows_.MoveNext())
        addRow_(rows_);
    if (loaded_ < total_ || readAll_) {
        timer_.start();
    } else {
        timer_.stop();
        rows_.Close();
    }
    seekFrom(first);
    Q_EMIT Progress(loaded_, readAll_ ? -1 : total_);
}

// The search has ended before its caller hears of it, since the caller may begin another one.
void ListFiller::seekFrom(int row) {
    if (!fits_)
        return;
    while (row < list_.RowCount() && !fits_(row))
        ++row;
    if (row == list_.RowCount() && IsFilling())
        return;
    const auto found = std::exchange(found_, nullptr);
    StopSeeking();
    found(row < list_.RowCount() ? row : -1);
}
