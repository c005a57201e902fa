#include "session/savedviews.h"

#include <algorithm>
#include <QStringList>

#include "platform/database/recordset.h"
#include "platform/database/sql.h"
#include "platform/text/plaintext.h"
#include "session/session.h"

namespace {

bool isKnown(const QString& name) {
    using namespace savedname;
    const QStringList known{Provider, Providers, Column,   Discipline, Columns, Fit, Working,
                            Panel,    FirstHour, LastHour, TimeUnit,   Room,    Mode};
    return known.contains(name);
}

void checkPlace(const SavedView& view) {
    Q_ASSERT_X(view.slot >= SavedView::FirstSlot && view.slot <= SavedView::LastSlot, "SavedView", "no such key");
}

}  // namespace

ViewContents::ViewContents(const QString& lines) {
    for (const QString& line : ManyLines(lines).split(QLatin1Char('\n'), Qt::SkipEmptyParts)) {
        const qsizetype equals = line.indexOf(QLatin1Char('='));
        if (equals < 0)
            lines_.emplace_back(line, QString());
        else
            lines_.emplace_back(line.left(equals), line.mid(equals + 1));
    }
}

QString ViewContents::Value(const QString& name) const {
    const auto found = std::ranges::find(lines_, name, &std::pair<QString, QString>::first);
    return found == lines_.end() ? QString() : found->second;
}

int ViewContents::Number(const QString& name, int otherwise) const {
    bool isNumber = false;
    const int number = Value(name).toInt(&isNumber);
    return isNumber ? number : otherwise;
}

void ViewContents::Set(const QString& name, const QString& value) {
    const auto found = std::ranges::find(lines_, name, &std::pair<QString, QString>::first);
    if (value.isEmpty()) {
        if (found != lines_.end())
            lines_.erase(found);
    } else if (found != lines_.end()) {
        found->second = OneLine(value);
    } else {
        lines_.emplace_back(name, OneLine(value));
    }
}

void ViewContents::KeepUnknown(const ViewContents& older) {
    for (const auto& line : older.lines_)
        if (!isKnown(line.first))
            lines_.push_back(line);
}

QString ViewContents::Lines() const {
    QStringList lines;
    for (const auto& [name, value] : lines_)
        lines << (value.isNull() ? name : name + QLatin1Char('=') + value);
    return lines.join(QLatin1Char('\n'));
}

View SavedView::Shows() const {
    const bool exists = viewNumber >= static_cast<int>(View::Day) && viewNumber <= static_cast<int>(View::Companion);
    return exists ? static_cast<View>(viewNumber) : View::None;
}

QString SavedViewsStatement() {
    return db::Sql(
        "Select SavedViewId, Slot, Title, ViewNumber, Contents from SavedViews Where UserId = '{}' Order by Slot, SavedViewId",
        Session().UID);
}

std::vector<SavedView> ReadSavedViews() {
    std::vector<SavedView> views;
    for (db::Recordset rows(SavedViewsStatement(), Session().Connection); !rows.Eof(); rows.MoveNext()) {
        const int slot = static_cast<int>(rows["Slot"].integer());
        if (slot < SavedView::FirstSlot || slot > SavedView::LastSlot)
            continue;
        if (!views.empty() && views.back().slot == slot)
            views.pop_back();
        views.push_back({static_cast<int>(rows["SavedViewId"].integer()), slot, OneLine(rows["Title"].text()).trimmed(),
                         static_cast<int>(rows["ViewNumber"].integer()), ViewContents(rows["Contents"].text())});
    }
    return views;
}

void StoreSavedView(const SavedView& view) {
    checkPlace(view);
    db::Connection& connection = Session().Connection;
    const QString title = FirstCharacters(view.title, SavedView::MostCharacters);
    const qint64 changed = connection.Execute(db::Sql(
        "Update SavedViews Set Title = '{}', ViewNumber = {}, Contents = '{}' Where UserId = '{}' AND Slot = {}", title,
        view.viewNumber, view.contents.Lines(), Session().UID, view.slot));
    if (changed == 0)
        connection.Execute(db::Sql(
            "Insert Into SavedViews (UserId, Slot, Title, ViewNumber, Contents) Values ('{}', {}, '{}', {}, '{}')",
            Session().UID, view.slot, title, view.viewNumber, view.contents.Lines()));
}

bool RenameSavedView(int slot, const QString& title) {
    return Session().Connection.Execute(db::Sql("Update SavedViews Set Title = '{}' Where UserId = '{}' AND Slot = {}",
                                                FirstCharacters(title, SavedView::MostCharacters), Session().UID,
                                                slot)) > 0;
}

void DeleteSavedView(int slot) {
    Session().Connection.Execute(
        db::Sql("Delete from SavedViews Where UserId = '{}' AND Slot = {}", Session().UID, slot));
}
