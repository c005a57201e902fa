#include "shell/providerpanel.h"

#include <algorithm>
#include <QLabel>
#include <QVBoxLayout>

#include "platform/controls/ctlist.h"
#include "platform/database/recordset.h"
#include "platform/database/sql.h"
#include "platform/desktop/desktop.h"
#include "platform/theme/theme.h"
#include "session/session.h"

using db::Sql;

namespace {

constexpr int CheckColumn = 1;
constexpr int DisciplineColumn = 3;
constexpr int PanelCharacters = 34;

std::vector<ListColumn> listColumns(ProviderPanel::Columns columns) {
    std::vector<ListColumn> shown{{QString(), ListColumn::Kind::Check, 4, Qt::AlignCenter},
                                  {QStringLiteral("Provider")}};
    if (columns == ProviderPanel::Columns::ProviderAndDiscipline)
        shown.push_back({QStringLiteral("Discipline"), ListColumn::Kind::Text, 12});
    return shown;
}

}  // namespace

ProviderPanel::ProviderPanel(Columns columns, QWidget* parent)
    : QWidget(parent), rows_(new QVBoxLayout(this)), ctList1(new ctList(this)) {
    auto* heading = new QLabel(QStringLiteral("Display Providers"), this);
    heading->setFont(HeadingFont());
    heading->setBuddy(ctList1);
    ctList1->setObjectName(QStringLiteral("ctList1"));
    ctList1->setAccessibleName(heading->text());
    ctList1->SetColumns(listColumns(columns));
    rows_->setContentsMargins(Space(8), 0, Space(8), Space(8));
    rows_->setSpacing(Space(8));
    rows_->addWidget(heading);
    rows_->addWidget(ctList1, 1);
    setMinimumWidth(fontMetrics().averageCharWidth() * PanelCharacters);
    connect(ctList1, &ctList::CheckChanged, this, &ProviderPanel::followCheck);
}

void ProviderPanel::Clear() {
    ctList1->Clear();
}

void ProviderPanel::Add(const ListedProvider& provider) {
    const QString check = provider.shown ? QStringLiteral("1") : QStringLiteral("0");
    const int row = ctList1->AddRow({check, provider.name, provider.discipline}, provider.id);
    ctList1->SetItemText(row, provider.name);
}

std::vector<ListedProvider> ProviderPanel::Providers() const {
    std::vector<ListedProvider> listed;
    listed.reserve(static_cast<std::size_t>(ctList1->RowCount()));
    for (int row = 0; row < ctList1->RowCount(); ++row)
        listed.push_back({ctList1->ItemData(row).toString(), ctList1->ItemText(row),
                          ctList1->Cell(row, DisciplineColumn), ctList1->Checked(row, CheckColumn)});
    return listed;
}

void ProviderPanel::CheckThose(const std::function<bool(const ListedProvider&)>& wanted) {
    int row = 0;
    for (const ListedProvider& provider : Providers())
        ctList1->SetChecked(row++, CheckColumn, wanted(provider));
}

void ProviderPanel::CheckAll() {
    CheckThose([](const ListedProvider&) { return true; });
}

void ProviderPanel::Choose(const QString& choice) {
    const QStringList ids = choice.split(QLatin1Char('|'));
    CheckThose([&](const ListedProvider& provider) { return choice.isEmpty() || ids.contains(provider.id); });
}

std::optional<ListedProvider> ProviderPanel::Find(const QString& id) const {
    for (const ListedProvider& provider : Providers())
        if (provider.id.compare(id, Qt::CaseInsensitive) == 0)
            return provider;
    return std::nullopt;
}

QString ProviderPanel::Choice() const {
    QString choice;
    for (const ListedProvider& provider : Providers())
        if (provider.shown)
            choice += provider.id + QLatin1Char('|');
    return choice;
}

void ProviderPanel::followCheck(int row) {
    if (Choice().isEmpty())
        ctList1->SetChecked(row, CheckColumn, true);
    else
        Q_EMIT ChoiceChanged();
}

QString ListedProvidersStatement() {
    return Sql(
        "Select * from provider_info Where archive = 0 and ((ExcludeFromScheduler is  Null or ExcludeFromScheduler = 0) or id = '{}') Order by prov_lastname",
        Session().UID);
}

QString ReadChoice(const QString& category, const QString& detail) {
    db::Recordset row(
        Sql("Select * from User_Preferences where UP_Pref_Category = '{}' and UP_Pref_Detail = '{}' AND UP_UserID = '{}'",
            category, detail, Session().UID),
        Session().Connection, db::Lock::Optimistic);
    if (!row.Eof())
        return row["UP_PD_Value"].text();
    row.AddNew();
    row.Set("UP_Pref_Category", category);
    row.Set("UP_Pref_Detail", detail);
    row.Set("UP_UserID", Session().UID);
    row.Set("UP_DateCreated", Today());
    row.Set("UP_PD_Value", QString());
    row.Update();
    return {};
}

void WriteChoice(const QString& category, const QString& detail, const QString& choice) {
    Session().Connection.Execute(Sql(
        "Update User_Preferences Set UP_PD_Value = '{}' Where UP_Pref_Category = '{}' and UP_Pref_Detail = '{}' AND UP_UserID = '{}'",
        choice, category, detail, Session().UID));
}
