#include "session/listfiller.h"

#include <algorithm>
#include <utility>

#include "platform/controls/ctlist.h"

namespace {

constexpr int PieceRows = 2000;

}  // namespace

ListFiller::ListFiller(ctList& list, QObject* parent) : QObject(parent), list_(list) {
    timer_.setInterval(0);
    connect(&timer_, &QTimer::timeout, this, [this] { addPiece(PieceRows); });
}

void ListFiller::Clear() {
    timer_.stop();
    StopSeeking();
    rows_.Close();
    list_.Clear();
    loaded_ = 0;
    total_ = 0;
    Q_EMIT Progress(0, 0);
}

void ListFiller::Fill(db::Recordset rows, AddRow addRow) {
    Clear();
    rows_ = std::move(rows);
    addRow_ = std::move(addRow);
    total_ = rows_.RecordCount();
    addPiece(PieceRows);
}

void ListFiller::Finish() {
    if (IsFilling())
        addPiece(total_ - loaded_);
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
    if (loaded_ < total_) {
        timer_.start();
    } else {
        timer_.stop();
        rows_.Close();
    }
    seekFrom(first);
    Q_EMIT Progress(loaded_, total_);
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
