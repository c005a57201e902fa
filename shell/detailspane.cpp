#include "shell/detailspane.h"

#include <QLabel>
#include <QPlainTextEdit>
#include <QVBoxLayout>

#include "platform/controls/ctlist.h"
#include "platform/theme/theme.h"
#include "session/hiddennames.h"

namespace {

constexpr int FewestCharacters = 24;
constexpr int ValueColumn = 2;
constexpr int ListShare = 5;
constexpr int NoteShare = 2;
constexpr int LongestWord = 2000;

}  // namespace

DetailsPane::DetailsPane(const QString& caption, QWidget* parent, int labelCharacters)
    : QSplitter(Qt::Vertical, parent), ctListInfo(new ctList), txtnote(new QPlainTextEdit) {
    setChildrenCollapsible(false);
    setMinimumWidth(fontMetrics().averageCharWidth() * FewestCharacters);
    ctListInfo->setObjectName(QStringLiteral("ctListInfo"));
    ctListInfo->setAccessibleName(tr("Appointment details"));
    ctListInfo->SetColumns({{QString(), ListColumn::Kind::Text, labelCharacters}, {QString()}});
    ctListInfo->setHeaderHidden(true);
    AddPane(caption, ctListInfo, ListShare);
    txtnote->setObjectName(QStringLiteral("txtnote"));
    txtnote->setAccessibleName(tr("Appointment note"));
    txtnote->setReadOnly(true);
    txtnote->setTabChangesFocus(true);
    addWidget(txtnote);
    setStretchFactor(indexOf(txtnote), NoteShare);
    FollowHiddenNames(ctListInfo);
    FollowHiddenNames(this, [this](bool) { writeNote(); });
}

// The caption is the content's buddy, so that Alt and its letter go there.
void DetailsPane::AddPane(const QString& caption, QWidget* content, int stretch) {
    auto* pane = new QWidget;
    auto* layout = new QVBoxLayout(pane);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(Space(4));
    auto* label = new QLabel(caption, pane);
    label->setFont(HeadingFont());
    label->setBuddy(content);
    layout->addWidget(label);
    layout->addWidget(content, 1);
    content->setMinimumWidth(1);
    addWidget(pane);
    setStretchFactor(indexOf(pane), stretch);
}

void DetailsPane::Clear() {
    ctListInfo->Clear();
    ShowNote({}, {});
}

void DetailsPane::AddRow(const QString& label, const QString& value, About about) {
    const int row = ctListInfo->AddRow({label, value});
    if (about == About::Patient)
        ctListInfo->NameCell(row, ValueColumn);
}

void DetailsPane::ShowNote(const QString& heading, const QString& note, About about) {
    heading_ = heading;
    note_ = note;
    noteIsAbout_ = about;
    writeNote();
}

void DetailsPane::writeNote() {
    // Looking for the words of an endless one takes seconds; where nobody set a blank, lines break anywhere.
    const bool endless = note_.size() > LongestWord && !note_.left(LongestWord).contains(QLatin1Char(' '));
    txtnote->setWordWrapMode(endless ? QTextOption::WrapAnywhere : QTextOption::WrapAtWordBoundaryOrAnywhere);
    txtnote->setPlainText(heading_ + (noteIsAbout_ == About::Patient ? ShownName(note_) : note_));
}
