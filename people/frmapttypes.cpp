#include "people/frmapttypes.h"

#include <algorithm>
#include <array>
#include <QCloseEvent>
#include <QColorDialog>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPixmap>
#include <QPushButton>

#include "data/codes.h"
#include "platform/calendar/colour.h"
#include "platform/controls/ctlist.h"
#include "platform/controls/listfilter.h"
#include "platform/controls/textfield.h"
#include "platform/database/recordset.h"
#include "platform/database/sql.h"
#include "platform/database/transaction.h"
#include "platform/desktop/desktop.h"
#include "platform/theme/icon.h"
#include "platform/theme/theme.h"
#include "session/errorbox.h"
#include "session/rights.h"
#include "session/session.h"

using db::Recordset;
using db::Sql;

namespace {

constexpr int MostCharacters = 100;  // Length of AptCategories.aptcategory.
const QString Title = QStringLiteral("Solvane");

int windowsColor(const QColor& color) {
    return color.blue() << 16 | color.green() << 8 | color.red();
}

}  // namespace

int StoredTypeColor(int picked) {
    constexpr std::array moved{ncolor::Holiday,     ncolor::Kept,      ncolor::AppointmentType,
                               ncolor::Group,       ncolor::Activity,  ncolor::Pending,
                               ncolor::Unavailable, ncolor::CheckedIn, ncolor::Tentative};
    if (picked == ncolor::Blank)
        return ncolor::Blank + 2;
    if (picked == ncolor::Missed || picked == ncolor::PatientCancelled || picked == ncolor::TherapistCancelled)
        return ncolor::TherapistCancelled + 1;
    return std::find(moved.begin(), moved.end(), picked) != moved.end() ? picked + 1 : picked;
}

frmapttypes::frmapttypes(QWidget* parent) : EditorDialog(parent) {
    setObjectName(QStringLiteral("frmapttypes"));
    setWindowTitle(QStringLiteral("Appointment Types"));
    buildForm();
    layOutForm();
    connectControls();
    loadtypes();
}

QSize frmapttypes::sizeHint() const {
    return {fontMetrics().averageCharWidth() * 72, fontMetrics().height() * 28};
}

void frmapttypes::buildForm() {
    fg = new ctList(this);
    fg->setObjectName(QStringLiteral("fg"));
    fg->setAccessibleName(QStringLiteral("Appointment Types"));
    fg->SetColumns({{tr("Color"), ListColumn::Kind::Color, 8}, {tr("Appointment Type")}});
    filter_ = new ListFilter(*fg, {tr("appointment type"), tr("appointment types")}, this);
    auto* entry = new TextField(this);
    entry->SetMost(MostCharacters);
    txttype = entry;
    txttype->setObjectName(QStringLiteral("txttype"));
    lblcode = new QLabel(this);
    lblcode->setObjectName(QStringLiteral("lblcode"));
    const auto button = [this](const char* name, const QString& text, const char* icon) {
        auto* made = new QPushButton(icon ? Icon(icon) : QIcon(), text, this);
        made->setObjectName(QLatin1String(name));
        made->setAutoDefault(false);
        return made;
    };
    PnlPickColor = button("PnlPickColor", tr("&Pick Color..."), nullptr);
    cmdadd = button("cmdadd", tr("&Add"), "add");
    cmdedit = button("cmdedit", tr("&Edit"), "edit");
    cmddelete = button("cmddelete", tr("&Delete"), "delete");
    cmdsave = button("cmdsave", tr("&Save"), "save");
    cmdcancel = button("cmdcancel", tr("C&ancel"), nullptr);
    cmdclose = button("cmdclose", tr("&Close"), nullptr);
}

void frmapttypes::layOutForm() {
    auto* name = new QLabel(tr("Appointment &type:"), this);
    name->setBuddy(txttype);
    auto* color = new QHBoxLayout;
    color->addWidget(PnlPickColor);
    color->addWidget(lblcode);
    color->addStretch(1);
    color->addWidget(cmdsave);
    color->addWidget(cmdcancel);
    auto* buttons = new QVBoxLayout;
    buttons->setSpacing(Space(8));
    for (QPushButton* each : {cmdadd, cmdedit, cmddelete})
        buttons->addWidget(each);
    buttons->addStretch(1);
    buttons->addWidget(cmdclose);
    auto* grid = new QGridLayout(this);
    grid->setContentsMargins(Space(16), Space(16), Space(16), Space(16));
    grid->setSpacing(Space(12));
    auto* types = new QVBoxLayout;
    types->setSpacing(Space(8));
    types->addWidget(filter_);
    types->addWidget(fg, 1);
    grid->addLayout(types, 0, 0, 1, 2);
    grid->addWidget(name, 1, 0);
    grid->addWidget(txttype, 1, 1);
    grid->addLayout(color, 2, 1);
    grid->addLayout(buttons, 0, 2, 3, 1);
    grid->setRowStretch(0, 1);
    grid->setColumnStretch(1, 1);
}

void frmapttypes::connectControls() {
    connect(fg, &ctList::SelectionChanged, this, [this] {
        cmdedit->setEnabled(fg->SelectedRow() >= 0);
        cmddelete->setEnabled(fg->SelectedRow() >= 0);
    });
    connect(fg, &ctList::RowActivated, this, &frmapttypes::cmdedit_Click);
    connect(txttype, &QLineEdit::returnPressed, this, &frmapttypes::cmdsave_Click);
    connect(PnlPickColor, &QPushButton::clicked, this, &frmapttypes::pickColor);
    connect(cmdadd, &QPushButton::clicked, this, &frmapttypes::cmdadd_Click);
    connect(cmdedit, &QPushButton::clicked, this, &frmapttypes::cmdedit_Click);
    connect(cmddelete, &QPushButton::clicked, this, &frmapttypes::cmddelete_Click);
    connect(cmdsave, &QPushButton::clicked, this, &frmapttypes::cmdsave_Click);
    connect(cmdcancel, &QPushButton::clicked, this, &frmapttypes::disablebuttons);
    connect(cmdclose, &QPushButton::clicked, this, &QDialog::accept);
}

void frmapttypes::loadtypes() {
    fg->Clear();
    try {
        for (Recordset rows(QStringLiteral("Select * from AptCategories Order by aptcategory"), Session().Connection);
             !rows.Eof(); rows.MoveNext()) {
            const QString name = rows["aptcategory"].text();
            const int color = static_cast<int>(rows["aptcategorycolor"].integer());
            const int row = fg->AddRow({ColorFromWindows(color).name(), name},
                                       QVariantList{rows["aptcategoryid"].integer(), color});
            fg->SetItemText(row, name);
        }
    } catch (const db::DatabaseError& error) {
        TellError(QStringLiteral("Error loading appointment types. "), error);
    }
    filter_->Refresh();
    disablebuttons();
}

void frmapttypes::disablebuttons() {
    typeId_ = 0;
    oldColor_ = NoColor;
    txttype->clear();
    showColor(NoColor);
    for (QWidget* each : {static_cast<QWidget*>(txttype), static_cast<QWidget*>(PnlPickColor),
                          static_cast<QWidget*>(cmdsave), static_cast<QWidget*>(cmdcancel)})
        each->setEnabled(false);
    cmdadd->setEnabled(true);
    cmdedit->setEnabled(fg->SelectedRow() >= 0);
    cmddelete->setEnabled(fg->SelectedRow() >= 0);
    fg->setEnabled(true);
    fg->setFocus();
}

void frmapttypes::openFields(int typeId, const QString& name, int color) {
    typeId_ = typeId;
    oldColor_ = color;
    txttype->setText(name);
    oldName_ = txttype->text();
    showColor(color);
    for (QWidget* each : {static_cast<QWidget*>(txttype), static_cast<QWidget*>(PnlPickColor),
                          static_cast<QWidget*>(cmdsave), static_cast<QWidget*>(cmdcancel)})
        each->setEnabled(true);
    for (QWidget* each : {static_cast<QWidget*>(cmdadd), static_cast<QWidget*>(cmdedit),
                          static_cast<QWidget*>(cmddelete), static_cast<QWidget*>(fg)})
        each->setEnabled(false);
    txttype->setFocus();
    txttype->selectAll();
}

void frmapttypes::showColor(int color) {
    color_ = color;
    if (color == NoColor) {
        lblcode->clear();
        return;
    }
    QPixmap swatch(fontMetrics().height() * 3, fontMetrics().height() * 3 / 2);
    swatch.fill(ColorFromWindows(color));
    lblcode->setPixmap(swatch);
    lblcode->setToolTip(QString::number(color));
}

int frmapttypes::selectedColor() const {
    return fg->ItemData(fg->SelectedRow()).toList().value(1).toInt();
}

bool frmapttypes::mayChange() {
    if (MayWrite())
        return true;
    MsgBox(QStringLiteral("You do not have permissions for this function."), ExclamationBox, Title);
    return false;
}

bool frmapttypes::IsTypeBeingUsed(int color) {
    const Recordset rows(Sql("Select Appointment_Type from Appointments where Appointment_Type = {}", color),
                         Session().Connection);
    return !rows.Eof();
}

bool frmapttypes::colorIsTaken() const {
    for (int row = 0; row < fg->RowCount(); ++row) {
        const QVariantList entry = fg->ItemData(row).toList();
        if (entry.value(1).toInt() == color_ && entry.value(0).toInt() != typeId_)
            return true;
    }
    return false;
}

void frmapttypes::pickColor() {
    QColorDialog dlgColor(color_ == NoColor ? QColor(Qt::white) : ColorFromWindows(color_), this);
    dlgColor.setObjectName(QStringLiteral("dlgColor"));
    if (ShowModal(dlgColor) == QDialog::Accepted)
        showColor(StoredTypeColor(windowsColor(dlgColor.currentColor())));
}

void frmapttypes::cmdadd_Click() {
    if (mayChange())
        openFields(0, {}, NoColor);
}

void frmapttypes::cmdedit_Click() {
    const int row = fg->SelectedRow();
    if (row >= 0 && mayChange())
        openFields(fg->ItemData(row).toList().value(0).toInt(), fg->ItemText(row), selectedColor());
}

void frmapttypes::cmddelete_Click() {
    const int row = fg->SelectedRow();
    if (row < 0 || !mayChange())
        return;
    try {
        if (IsTypeBeingUsed(selectedColor())) {
            MsgBox(QStringLiteral("Unable to delete. This type and color is being used for existing appointments."),
                   ExclamationBox, Title);
            return;
        }
        if (MsgBox(QStringLiteral("Are you sure you want to delete this appointment type?"), YesNoBox,
                   QStringLiteral("Delete")) != Answer::Yes)
            return;
        Session().Connection.Execute(
            Sql("Delete From aptcategories Where aptcategoryid = {}", fg->ItemData(row).toList().value(0).toInt()));
    } catch (const db::DatabaseError& error) {
        TellError(QStringLiteral("Error deleting appointment type. "), error);
    }
    loadtypes();
}

void frmapttypes::cmdsave_Click() {
    const QString name = txttype->text().trimmed();
    if (name.isEmpty()) {
        MsgBox(QStringLiteral("Enter a name for this appointment type."), ExclamationBox, Title);
        txttype->setFocus();
        return;
    }
    if (color_ == NoColor) {
        MsgBox(QStringLiteral("Assign a color code for this appointment type."), ExclamationBox, Title);
        PnlPickColor->setFocus();
        return;
    }
    if (colorIsTaken()) {
        MsgBox(QStringLiteral("Another appointment type has this color. Pick a different one."), ExclamationBox, Title);
        PnlPickColor->setFocus();
        return;
    }
    if (typeId_ > 0 && color_ != oldColor_ &&
        MsgBox(
            QStringLiteral(
                "You are changing the color of an existing Appointment Type. The color will be changed for all previous appointments. Continue?"),
            YesNoBox, Title) != Answer::Yes)
        return;
    try {
        store(name);
    } catch (const db::DatabaseError& error) {
        TellError(QStringLiteral("Error saving appointment type. "), error);
        return;  // The typed text stays for another attempt.
    }
    loadtypes();
}

void frmapttypes::store(const QString& name) {
    db::Connection& connection = Session().Connection;
    if (typeId_ == 0) {
        connection.Execute(
            Sql("Insert Into aptcategories (aptcategory, aptcategorycolor) Values ('{}', {})", name, color_));
        return;
    }
    // Both are changed together, because appointments know their type by the colour alone.
    db::InTransaction(connection, [&] {
        if (color_ != oldColor_)
            connection.Execute(
                Sql("Update appointments Set Appointment_Type = {} Where Appointment_Type = {}", color_, oldColor_));
        connection.Execute(
            Sql("Update aptcategories Set aptcategory = '{}', aptcategorycolor = {} Where aptcategoryid = {}", name,
                color_, typeId_));
    });
}

void frmapttypes::reject() {
    if (txttype->isEnabled())
        disablebuttons();
    else
        EditorDialog::reject();
}

bool frmapttypes::IsChanged() const {
    return txttype->isEnabled() && (txttype->text() != oldName_ || color_ != oldColor_);
}

// The window's close button closes the form, while Escape only ends the editing.
void frmapttypes::closeEvent(QCloseEvent* event) {
    if (isVisible() && !mayGiveUp()) {
        event->ignore();
        return;
    }
    disablebuttons();
    EditorDialog::closeEvent(event);
}
