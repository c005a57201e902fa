#include <QComboBox>
#include <QProgressBar>
#include <QScreen>
#include <QVBoxLayout>

#include "output/frmschrpt.h"
#include "platform/controls/ctdedit.h"
#include "platform/controls/formparts.h"
#include "platform/printing/printpreview.h"
#include "platform/theme/icon.h"
#include "platform/theme/theme.h"
#include "session/session.h"

namespace {

constexpr int ProviderCharacters = 16;

ctDEdit* dateField(const char* name, QDate date, QWidget* parent) {
    auto* field = Named(new ctDEdit(ctDEdit::Kind::Date, parent), name);
    field->setDateOrder(Session().DateOrder);
    field->setDate(date);
    return field;
}

QHBoxLayout* fields(std::initializer_list<QWidget*> parts) {
    auto* row = new QHBoxLayout;
    row->setSpacing(Space(8));
    for (QWidget* part : parts)
        row->addWidget(part);
    row->addStretch(1);
    return row;
}

}  // namespace

void frmschrpt::buildForm() {
    QLayout* filterBar = buildFilterBar();
    vp = Named(new PrintPreview(this), "vp");
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(Space(12), Space(8), Space(12), Space(12));
    column->setSpacing(Space(8));
    column->addLayout(filterBar);
    column->addWidget(vp, 1);
    column->addLayout(buildFoot());
    setWindowFlag(Qt::WindowMaximizeButtonHint);
    const QSize wanted(fontMetrics().averageCharWidth() * 130, fontMetrics().height() * 42);
    resize(wanted.boundedTo(screen()->availableSize()));
}

QLayout* frmschrpt::buildFilterBar() {
    ctdate = {dateField("ctdate0", opening_.from, this), dateField("ctdate1", opening_.to, this)};
    cboprovider = Named(new QComboBox(this), "cboprovider");
    cboprovider->setMinimumContentsLength(ProviderCharacters);
    cboprovider->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    cbosort = Named(new QComboBox(this), "cbosort");
    cmdgenerate1 = FormButton(QStringLiteral("&Refresh"), "cmdgenerate1", this);
    cmdgenerate1->setIcon(Icon("refresh"));
    cmdgenerate1->setDefault(true);
    cmdfilter = FormButton(QStringLiteral("Filter by P&atients"), "cmdfilter", this);
    cmdfilter->setCheckable(true);
    auto* rows = new QVBoxLayout;
    rows->setSpacing(Space(8));
    rows->addLayout(fields({FieldLabel(QStringLiteral("&From:"), ctdate[0]), ctdate[0],
                            FieldLabel(QStringLiteral("&To:"), ctdate[1]), ctdate[1],
                            FieldLabel(QStringLiteral("Pro&vider:"), cboprovider), cboprovider}));
    rows->addLayout(fields({FieldLabel(QStringLiteral("S&ort:"), cbosort), cbosort, cmdgenerate1, cmdfilter}));
    return rows;
}

QLayout* frmschrpt::buildFoot() {
    lblstatus = Named(new QLabel(this), "lblstatus");
    lblstatus->setWordWrap(true);
    pnlprogress = Named(new QProgressBar(this), "pnlprogress");
    pnlprogress->setAccessibleName(tr("Making the report"));
    pnlprogress->setMaximumWidth(fontMetrics().averageCharWidth() * 20);
    cmdcancel = FormButton(tr("Ca&ncel"), "cmdcancel", this);
    for (QWidget* part : std::initializer_list<QWidget*>{pnlprogress, cmdcancel}) {
        QSizePolicy keeping = part->sizePolicy();
        keeping.setRetainSizeWhenHidden(true);
        part->setSizePolicy(keeping);
        part->hide();
    }
    cmdsave = FormButton(tr("&Save as PDF..."), "cmdsave", this);
    cmdsave->setIcon(Icon("save"));
    cmdprint = FormButton(QStringLiteral("&Print"), "cmdprint", this);
    cmdprint->setIcon(Icon("print"));
    cmdclose = FormButton(QStringLiteral("&Close"), "cmdclose", this);
    auto* foot = new QHBoxLayout;
    foot->setSpacing(Space(8));
    foot->addWidget(lblstatus, 1);
    for (QWidget* part : std::initializer_list<QWidget*>{pnlprogress, cmdcancel, cmdsave, cmdprint, cmdclose})
        foot->addWidget(part);
    return foot;
}
