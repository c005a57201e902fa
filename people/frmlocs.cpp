#include "people/frmlocs.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "platform/controls/ctlist.h"
#include "platform/controls/listfilter.h"
#include "platform/controls/textfield.h"
#include "platform/database/recordset.h"
#include "platform/database/sql.h"
#include "platform/desktop/desktop.h"
#include "platform/theme/icon.h"
#include "platform/theme/theme.h"
#include "session/errorbox.h"
#include "session/session.h"

using db::Lock;
using db::Recordset;
using db::Sql;

namespace {

/// The length of an entry that an appointment can hold.
constexpr int MostCharacters = 50;

struct Facts {
    const char* one;  ///< The words that count the entries.
    const char* many;
    const char* title;
    const char* heading;
    const char* hint;
    const char* load;
    const char* name;       ///< The name field.
    const char* key;        ///< The key field.
    const char* criterion;  ///< The condition that finds the key.
};

const Facts& factsOf(PracticeList list) {
    static constexpr Facts locations{
        "location",
        "locations",
        "Edit Locations",
        "Location",
        "Click a Location to Delete or Rename it, or type a new Location in the space below.",
        "Select * from Locations Order by Location",
        "Location",
        "Locationid",
        "Locationid = {}"};
    static constexpr Facts rooms{"room",
                                 "rooms",
                                 "Edit Rooms",
                                 "Room",
                                 "Click a Room to Delete or Rename it, or type a new Room in the space below.",
                                 "Select * from Rooms Order by Room",
                                 "Room",
                                 "Roomid",
                                 "Roomid = {}"};
    static constexpr Facts events{
        "activity/event",
        "activities/events",
        "Edit Activities/Events",
        "Activity/Event",
        "Click an Activity/Event to Delete or Rename it, or type a new Activity/Event in the space below.",
        "Select * from Events Order by Event",
        "Event",
        "Eventid",
        "Eventid = {}"};
    static constexpr Facts availability{
        "reason",
        "reasons",
        "Edit Unavailable Time",
        "Unavailable Time",
        "Click an Unavailable Time to Delete or Rename it, or type a new Unavailable Time in the space below.",
        "Select * from availability Order by avail",
        "avail",
        "Availid",
        "Availid = {}"};
    switch (list) {
        case PracticeList::Rooms:
            return rooms;
        case PracticeList::Events:
            return events;
        case PracticeList::Availability:
            return availability;
        case PracticeList::Locations:
            break;
    }
    return locations;
}

}  // namespace

frmlocs::frmlocs(PracticeList list, QWidget* parent) : EditorDialog(parent), list_(list) {
    setObjectName(QStringLiteral("frmlocs"));
    setWindowTitle(QLatin1String(factsOf(list).title));
    buildForm();
    layOutForm();
    loadlist();
    connect(List1, &ctList::SelectionChanged, this, &frmlocs::followSelection);
    connect(txtlocation, &QLineEdit::textChanged, this, &frmlocs::followText);
    connect(cmdadd, &QPushButton::clicked, this, &frmlocs::cmdadd_Click);
    connect(cmdrename, &QPushButton::clicked, this, &frmlocs::cmdrename_Click);
    connect(cmddelete, &QPushButton::clicked, this, &frmlocs::cmddelete_Click);
    connect(cmdclose, &QPushButton::clicked, this, &QDialog::accept);
}

QSize frmlocs::sizeHint() const {
    return {fontMetrics().averageCharWidth() * 62, fontMetrics().height() * 26};
}

bool frmlocs::IsChanged() const {
    return !txtlocation->text().trimmed().isEmpty() && txtlocation->text() != offered_;
}

void frmlocs::buildForm() {
    const Facts& facts = factsOf(list_);
    lblhint = new QLabel(QLatin1String(facts.hint), this);
    lblhint->setWordWrap(true);
    List1 = new ctList(this);
    List1->setObjectName(QStringLiteral("List1"));
    List1->setAccessibleName(QLatin1String(facts.heading));
    List1->SetColumns({{QLatin1String(facts.heading)}});
    filter_ = new ListFilter(*List1, {QLatin1String(facts.one), QLatin1String(facts.many)}, this);
    auto* entry = new TextField(this);
    entry->SetMost(MostCharacters);
    txtlocation = entry;
    txtlocation->setObjectName(QStringLiteral("txtlocation"));
    txtlocation->setAccessibleName(QLatin1String(facts.heading));
    txtlocation->setClearButtonEnabled(true);
    const auto button = [this](const char* name, const QString& text, const char* icon) {
        auto* made = new QPushButton(icon ? Icon(icon) : QIcon(), text, this);
        made->setObjectName(QLatin1String(name));
        made->setAutoDefault(false);
        made->setEnabled(false);
        return made;
    };
    cmdadd = button("cmdadd", tr("&Add"), "add");
    cmdadd->setDefault(true);
    cmdrename = button("cmdrename", tr("&Rename"), "edit");
    cmddelete = button("cmddelete", tr("&Delete"), "delete");
    cmdclose = button("cmdclose", tr("&Close"), nullptr);
    cmdclose->setEnabled(true);
}

void frmlocs::layOutForm() {
    auto* buttons = new QVBoxLayout;
    buttons->setSpacing(Space(8));
    for (QPushButton* each : {cmdadd, cmdrename, cmddelete})
        buttons->addWidget(each);
    buttons->addStretch(1);
    buttons->addWidget(cmdclose);
    auto* left = new QVBoxLayout;
    left->setSpacing(Space(8));
    left->addWidget(filter_);
    left->addWidget(List1, 1);
    left->addWidget(txtlocation);
    auto* row = new QHBoxLayout;
    row->setSpacing(Space(12));
    row->addLayout(left, 1);
    row->addLayout(buttons);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(Space(16), Space(16), Space(16), Space(16));
    column->setSpacing(Space(12));
    column->addWidget(lblhint);
    column->addLayout(row, 1);
    setTabOrder(List1, txtlocation);
    txtlocation->setFocus();
}

void frmlocs::loadlist() {
    const Facts& facts = factsOf(list_);
    List1->Clear();
    try {
        for (Recordset rows(QLatin1String(facts.load), Session().Connection); !rows.Eof(); rows.MoveNext()) {
            const QString name = rows[facts.name].text();
            const int row = List1->AddRow({name}, rows[facts.key].integer());
            List1->SetItemText(row, name);
        }
    } catch (const db::DatabaseError& error) {
        TellError(QStringLiteral("Error loading list. "), error);
    }
    filter_->Refresh();
    followSelection();
}

void frmlocs::followSelection() {
    const int row = List1->SelectedRow();
    if (row >= 0) {
        txtlocation->setText(List1->ItemText(row));
        offered_ = txtlocation->text();
    }
    cmddelete->setEnabled(row >= 0);
    followText();
}

void frmlocs::followText() {
    const bool typed = !txtlocation->text().trimmed().isEmpty();
    cmdadd->setEnabled(typed);
    cmdrename->setEnabled(typed && List1->SelectedRow() >= 0);
}

int frmlocs::rowOf(const QString& name) const {
    for (int row = 0; row < List1->RowCount(); ++row)
        if (List1->ItemText(row).trimmed().compare(name.trimmed(), Qt::CaseInsensitive) == 0)
            return row;
    return -1;
}

template <class Write>
void frmlocs::write(Write step) {
    try {
        if (step()) {
            filter_->ShowAll();
            txtlocation->clear();
            offered_.clear();
        }
    } catch (const db::DatabaseError& error) {
        TellError(QStringLiteral("Error saving list. "), error);
    }
    loadlist();
    txtlocation->setFocus();
}

void frmlocs::cmdadd_Click() {
    const QString name = txtlocation->text().trimmed();
    if (rowOf(name) >= 0) {
        MsgBox(QStringLiteral("Item is already on list."), ExclamationBox, QStringLiteral("Duplicate Item"));
        return;
    }
    write([&] {
        Recordset rows(QLatin1String(factsOf(list_).load), Session().Connection, Lock::Optimistic);
        rows.AddNew();
        rows.Set(factsOf(list_).name, name);
        rows.Update();
        return true;
    });
}

void frmlocs::cmdrename_Click() {
    const QString name = txtlocation->text().trimmed();
    const int row = List1->SelectedRow();
    // An entry may be renamed to another spelling of its own name.
    if (const int found = rowOf(name); found >= 0 && found != row) {
        MsgBox(QStringLiteral("Item is already on list."), ExclamationBox, QStringLiteral("Item Exists"));
        return;
    }
    write([&] {
        Recordset rows(QLatin1String(factsOf(list_).load), Session().Connection, Lock::Optimistic);
        rows.Find(Sql(factsOf(list_).criterion, List1->ItemData(row).toLongLong()));
        if (rows.Eof()) {
            MsgBox(QStringLiteral("Error saving list. Another user may have deleted this item."), ErrorBox,
                   QStringLiteral("Error"));
            return false;
        }
        rows.Set(factsOf(list_).name, name);
        rows.Update();
        return true;
    });
}

void frmlocs::cmddelete_Click() {
    const qint64 key = List1->ItemData(List1->SelectedRow()).toLongLong();
    write([&] {
        Recordset rows(QLatin1String(factsOf(list_).load), Session().Connection, Lock::Optimistic);
        rows.Find(Sql(factsOf(list_).criterion, key));
        if (!rows.Eof())
            rows.Delete();
        return true;
    });
}
