#include <QComboBox>
#include <QFormLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "appointments/frmmove.h"
#include "platform/controls/ctdedit.h"
#include "platform/controls/ctlist.h"
#include "platform/controls/formparts.h"
#include "platform/theme/theme.h"
#include "session/hiddennames.h"
#include "session/session.h"

namespace {

constexpr int TimeCharacters = 12;
constexpr int PlaceCharacters = 20;
constexpr int FewestLines = 7;

QLabel* plainLabel(const char* name, QWidget* parent) {
    auto* label = Named(new QLabel(parent), name);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    return label;
}

}  // namespace

void frmmove::buildFields() {
    const auto field = [this](ctDEdit::Kind kind, const char* name, const QString& accessibleName) {
        auto* made = Named(new ctDEdit(kind, this), name);
        made->setTwentyFourHour(Session().MilitaryTime);
        made->setDateOrder(Session().DateOrder);
        made->setAccessibleName(accessibleName);
        return made;
    };
    lblheading = plainLabel("lblheading", this);
    lblheading->setFont(HeadingFont());
    lblfrom = plainLabel("lblfrom", this);
    ctdate = field(ctDEdit::Kind::Date, "ctdate", tr("Date"));
    ctstart = field(ctDEdit::Kind::Time, "ctstart", tr("Time"));
    ctstart->setStep(Session().TimeUnit);
    lblend = plainLabel("lblend", this);
    lblend->setWordWrap(false);
    cboprovider = Named(new QComboBox(this), "cboprovider");
    cboprovider->setAccessibleName(tr("Provider"));
    cboprovider->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    cboprovider->setMinimumContentsLength(PlaceCharacters);
}

void frmmove::buildList() {
    lblway = plainLabel("lblway", this);
    ctList1 = Named(new ctList(this), "ctList1");
    ctList1->setAccessibleName(tr("In the way"));
    ctList1->SetColumns({{QStringLiteral("Start"), ListColumn::Kind::Text, TimeCharacters},
                         {QStringLiteral("End"), ListColumn::Kind::Text, TimeCharacters},
                         {QStringLiteral("Apt.")},
                         {QStringLiteral("Provider or Room"), ListColumn::Kind::Text, PlaceCharacters}});
    ctList1->setMinimumHeight(fontMetrics().height() * FewestLines);
    FollowHiddenNames(ctList1);
}

void frmmove::layOutForm() {
    auto* time = new QHBoxLayout;
    time->setSpacing(Space(8));
    time->addWidget(ctstart);
    time->addWidget(lblend, 1);
    auto* fields = new QFormLayout;
    fields->setHorizontalSpacing(Space(12));
    fields->setVerticalSpacing(Space(8));
    fields->addRow(FieldLabel(tr("&Date:"), ctdate), ctdate);
    fields->addRow(FieldLabel(tr("&Time:"), ctstart), time);
    fields->addRow(FieldLabel(tr("&Provider:"), cboprovider), cboprovider);
    ctdate->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    ctstart->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    auto* way = new QLabel(tr("In the &way:"), this);
    way->setFont(HeadingFont());
    way->setBuddy(ctList1);
    cmdOk = FormButton(tr("&OK"), "cmdOk", this);
    cmdOk->setDefault(true);
    cmdcancel = FormButton(tr("&Cancel"), "cmdcancel", this);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(Space(16), Space(16), Space(16), Space(16));
    column->setSpacing(Space(12));
    auto* head = new QVBoxLayout;
    head->setSpacing(Space(4));
    head->addWidget(lblheading);
    head->addWidget(lblfrom);
    column->addLayout(head);
    column->addLayout(fields);
    auto* below = new QVBoxLayout;
    below->setSpacing(Space(4));
    below->addWidget(way);
    below->addWidget(lblway);
    below->addWidget(ctList1, 1);
    column->addLayout(below, 1);
    column->addLayout(ButtonRow({cmdOk, cmdcancel}));
    ctdate->setFocus();
}

QSize frmmove::sizeHint() const {
    return {fontMetrics().averageCharWidth() * 92, fontMetrics().height() * 25};
}
