#include "shell/frmpopts.h"

#include <algorithm>
#include <QCheckBox>
#include <QComboBox>
#include <QFontDatabase>
#include <QFontInfo>
#include <QFormLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>

#include "platform/calendar/timescale.h"
#include "platform/controls/formarea.h"
#include "platform/controls/formparts.h"
#include "platform/controls/textfield.h"
#include "platform/desktop/desktop.h"
#include "platform/desktop/fontchoice.h"
#include "platform/printing/paperfont.h"
#include "platform/theme/theme.h"
#include "session/session.h"
#include "shell/schedulesheet.h"

namespace {

/// A larger title is shown in this size, so that the form stays in its place.
constexpr double MostSamplePoints = 20;
constexpr int SampleMinute = 9 * 60;
constexpr int SampleLetters = 56;

QString described(const QFont& font) {
    const QString family = font.families().value(0);
    const bool isHere = family == QLatin1String("Arial") || QFontDatabase::hasFamily(family);
    QStringList parts{
        isHere ? family
               : frmpopts::tr("%1 (not on this computer, printed in %2)").arg(family, QFontInfo(font).family())};
    parts << frmpopts::tr("%1 points").arg(font.pointSizeF());
    if (font.bold())
        parts << frmpopts::tr("bold");
    if (font.italic())
        parts << frmpopts::tr("italic");
    return parts.join(QStringLiteral(", "));
}

QFont sampleOf(QFont font) {
    font.setPointSizeF(std::min(font.pointSizeF(), MostSamplePoints));
    return font;
}

QLabel* sampleLabel(const char* name, const QString& text, int height, QWidget* parent) {
    auto* label = Named(new QLabel(text, parent), name);
    label->setTextFormat(Qt::PlainText);
    label->setFixedHeight(height);
    // A wide sample is cut off. It does not widen the form.
    label->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    return label;
}

}  // namespace

frmpopts::frmpopts(PrintOptionsRequest request, QWidget* parent)
    : EditorDialog(parent), request_(std::move(request)), read_(ReadPrintOptions()) {
    setObjectName(QStringLiteral("frmpopts"));
    setWindowTitle(QStringLiteral("Print Options"));
    buildForm();
    loadOptions();
    connect(cmdtitlefont, &QPushButton::clicked, this, [this] { chooseFont(titleFont_, tr("Title Font")); });
    connect(cmdtimefont, &QPushButton::clicked, this, [this] { chooseFont(timeFont_, tr("Time Font")); });
    connect(cboalign, &QComboBox::currentIndexChanged, this, &frmpopts::showSample);
    connect(cmdok, &QPushButton::clicked, this, &frmpopts::cmdok_Click);
    connect(cmdcancel, &QPushButton::clicked, this, &QDialog::reject);
    connect(cmdhelp, &QPushButton::clicked, this, [this] { request_.help(); });
}

void frmpopts::buildForm() {
    auto* fields = new QWidget(this);
    auto* boxes = new QVBoxLayout(fields);
    boxes->setContentsMargins(0, 0, 0, 0);
    boxes->setSpacing(Space(12));
    boxes->addWidget(buildTitles());
    boxes->addWidget(buildPage());
    boxes->addStretch(1);

    cmdhelp = FormButton(QStringLiteral("&Help"), "cmdhelp", this);
    cmdok = FormButton(tr("&OK"), "cmdok", this);
    cmdok->setDefault(true);
    cmdcancel = FormButton(tr("&Cancel"), "cmdcancel", this);
    QHBoxLayout* buttons = ButtonRow({cmdok, cmdcancel});
    buttons->insertWidget(0, cmdhelp);

    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(Space(16), Space(16), Space(16), Space(16));
    column->setSpacing(Space(12));
    column->addWidget(new FormArea(fields, this), 1);
    column->addLayout(buttons);
    setTabOrder(cmdok, cmdcancel);
    setTabOrder(cmdcancel, cmdhelp);
    FitToScreen(*this);
}

QWidget* frmpopts::buildSample(QWidget* parent) {
    auto* paper = Named(new QFrame(parent), "paper");
    paper->setFrameShape(QFrame::Box);
    paper->setAutoFillBackground(true);
    // Paper is white and its ink is black, also beside a dark form.
    QPalette ink = paper->palette();
    ink.setColor(QPalette::Window, Qt::white);
    ink.setColor(QPalette::WindowText, Qt::black);
    paper->setPalette(ink);
    paper->setMinimumWidth(fontMetrics().averageCharWidth() * SampleLetters);
    lblTitle = sampleLabel("lblTitle", SheetDate(Today()), fontMetrics().height() * 5 / 2, paper);
    lbltime =
        sampleLabel("lbltime", ClockText(SampleMinute, Session().MilitaryTime), fontMetrics().height() * 2, paper);
    auto* lines = new QVBoxLayout(paper);
    lines->setContentsMargins(Space(12), Space(4), Space(12), Space(4));
    lines->setSpacing(0);
    lines->addWidget(lblTitle);
    lines->addWidget(lbltime);
    return paper;
}

QWidget* frmpopts::buildTitles() {
    auto* box = new QGroupBox(tr("Title and Time"), this);
    cmdtitlefont = FormButton(QStringLiteral("&Title Font..."), "cmdtitlefont", box);
    lbltitlefont = Named(new QLabel(box), "lbltitlefont");
    cmdtimefont = FormButton(QStringLiteral("T&ime Font..."), "cmdtimefont", box);
    lbltimefont = Named(new QLabel(box), "lbltimefont");
    cboalign = Named(new QComboBox(box), "cboalign");
    cboalign->addItems(
        {QStringLiteral("Left justify"), QStringLiteral("Right justify"), QStringLiteral("Center justify")});
    for (QLabel* described : {lbltitlefont, lbltimefont}) {
        described->setTextFormat(Qt::PlainText);
        described->setWordWrap(true);
    }
    auto* rows = new QGridLayout(box);
    rows->setHorizontalSpacing(Space(12));
    rows->setVerticalSpacing(Space(8));
    rows->setColumnStretch(1, 1);
    rows->addWidget(buildSample(box), 0, 0, 1, 2);
    rows->addWidget(cmdtitlefont, 1, 0);
    rows->addWidget(lbltitlefont, 1, 1);
    rows->addWidget(cmdtimefont, 2, 0);
    rows->addWidget(lbltimefont, 2, 1);
    rows->addWidget(FieldLabel(tr("Title &alignment:"), cboalign), 3, 0);
    rows->addWidget(cboalign, 3, 1);
    return box;
}

QWidget* frmpopts::buildPage() {
    auto* box = new QGroupBox(tr("Page"), this);
    cbounits = Named(new QComboBox(box), "cbounits");
    cbounits->addItems({QStringLiteral("5 minutes"), QStringLiteral("10 minutes"), QStringLiteral("15 minutes"),
                        QStringLiteral("30 minutes")});
    cbounits->setPlaceholderText(tr("As on screen"));
    txtcols = Named(new TextField(box), "txtcols");
    txtcols->setFixedWidth(fontMetrics().averageCharWidth() * 10);
    auto* range = new QLabel(tr("1 to 9, for all providers"), box);
    range->setForegroundRole(QPalette::PlaceholderText);
    auto* columns = new QHBoxLayout;
    columns->setSpacing(Space(8));
    columns->addWidget(txtcols);
    columns->addWidget(range, 1);
    ckweekends = Named(new QCheckBox(QStringLiteral("Print &Weekend Appointments"), box), "ckweekends");
    ckTaskBar = Named(new QCheckBox(QStringLiteral("Print Task &Bar (useful for color print-outs)"), box), "ckTaskBar");
    auto* rows = new QFormLayout(box);
    rows->setVerticalSpacing(Space(8));
    rows->setHorizontalSpacing(Space(12));
    rows->addRow(FieldLabel(QStringLiteral("&Units:"), cbounits), cbounits);
    rows->addRow(FieldLabel(QStringLiteral("Columns &Per Page"), txtcols), columns);
    if (request_.weekends)
        rows->addRow(ckweekends);
    else
        ckweekends->hide();
    rows->addRow(ckTaskBar);
    return box;
}

void frmpopts::loadOptions() {
    titleFont_ = read_.titleFont;
    timeFont_ = read_.timeFont;
    cboalign->setCurrentIndex(static_cast<int>(read_.titlePlace));
    cbounits->setCurrentIndex(PlaceOfTimeUnit(read_.timeUnit));
    txtcols->setText(QString::number(read_.columnsPerPage));
    ckweekends->setChecked(read_.weekends);
    ckTaskBar->setChecked(read_.taskBar);
    showSample();
}

void frmpopts::showSample() {
    lblTitle->setFont(sampleOf(titleFont_));
    lblTitle->setAlignment(AlignmentOf(static_cast<TitlePlace>(cboalign->currentIndex())) | Qt::AlignVCenter);
    lbltime->setFont(sampleOf(timeFont_));
    lbltitlefont->setText(described(titleFont_));
    lbltimefont->setText(described(timeFont_));
    cmdtitlefont->setAccessibleDescription(lbltitlefont->text());
    cmdtimefont->setAccessibleDescription(lbltimefont->text());
}

void frmpopts::chooseFont(QFont& font, const QString& title) {
    const std::optional<QFont> chosen = ChooseFont(title, font);
    if (!chosen)
        return;
    const double points = std::clamp(chosen->pointSizeF(), PrintOptions::LeastPoints, PrintOptions::MostPoints);
    font = printing::PaperFont(chosen->family(), points);
    font.setBold(chosen->bold());
    font.setItalic(chosen->italic());
    showSample();
}

bool frmpopts::IsChanged() const {
    return EditorDialog::IsChanged() || titleFont_ != read_.titleFont || timeFont_ != read_.timeFont;
}

std::optional<int> frmpopts::enteredColumns() const {
    bool isNumber = false;
    const int columns = txtcols->text().trimmed().toInt(&isNumber);
    const bool fits = isNumber && columns >= PrintOptions::LeastColumns && columns <= PrintOptions::MostColumns;
    return fits ? std::optional(columns) : std::nullopt;
}

PrintOptions frmpopts::entered(int columns) const {
    PrintOptions options = read_;
    options.titleFont = titleFont_;
    options.timeFont = timeFont_;
    options.titlePlace = static_cast<TitlePlace>(cboalign->currentIndex());
    if (cbounits->currentIndex() >= 0)
        options.timeUnit = PrintOptions::TimeUnits.at(static_cast<std::size_t>(cbounits->currentIndex()));
    options.weekends = ckweekends->isChecked();
    options.columnsPerPage = columns;
    options.taskBar = ckTaskBar->isChecked();
    return options;
}

void frmpopts::cmdok_Click() {
    const std::optional<int> columns = enteredColumns();
    if (!columns) {
        MsgBox(QStringLiteral("Enter a number between 1 and 9."), ExclamationBox, windowTitle());
        txtcols->setFocus();
        txtcols->selectAll();
        return;
    }
    if (StorePrintOptions(read_, entered(*columns)))
        accept();
    else
        // The store tells nobody: the form stays open, so that nothing is lost.
        MsgBox(
            tr("The print options could not be saved. What you have changed is still here, so that you can try again."),
            ExclamationBox, windowTitle());
}
