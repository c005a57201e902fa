#include "appointments/matchlist.h"

#include <algorithm>
#include <QAccessible>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QVBoxLayout>

#include "appointments/patientlist.h"
#include "platform/controls/ctlist.h"
#include "platform/controls/formparts.h"
#include "platform/database/error.h"
#include "platform/desktop/localefacts.h"
#include "platform/theme/theme.h"

namespace {

constexpr int PauseMilliseconds = 120;
constexpr int MostMatches = 50;
constexpr int MostLines = 8;

}  // namespace

MatchList::MatchList(QLineEdit& box, QWidget& form) : QFrame(&form), box_(box), form_(form) {
    setObjectName(QStringLiteral("pnlmatches"));
    setFrameShape(QFrame::StyledPanel);
    setAutoFillBackground(true);
    buildList();
    hide();
    due_.setSingleShot(true);
    due_.setInterval(PauseMilliseconds);
    connect(&due_, &QTimer::timeout, this, &MatchList::read);
    connect(lstmatches, &QTreeView::clicked, this,
            [this](const QModelIndex& index) { Q_EMIT Clicked(lstmatches->ItemData(index.row()).toString()); });
    connect(lstmatches, &ctList::SelectionChanged, this, &MatchList::tellMark);
}

void MatchList::buildList() {
    lstmatches = Named(new ctList(this), "lstmatches");
    lstmatches->setAccessibleName(tr("Patients who fit"));
    lstmatches->setFocusPolicy(Qt::NoFocus);
    lstmatches->SetColumns({{tr("Name"), ListColumn::Kind::Text, 40},
                            {tr("Birth Date"), ListColumn::Kind::Text, 16},
                            {tr("Account"), ListColumn::Kind::Text, 14},
                            {tr("Home Phone")}});
    lblmore = Named(new QLabel(tr("More than %1 fit. Type more of the name.").arg(MostMatches), this), "lblmore");
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(Space(4), Space(4), Space(4), Space(4));
    column->setSpacing(Space(4));
    column->addWidget(lstmatches, 1);
    column->addWidget(lblmore);
}

void MatchList::LookFor(const QString& typed) {
    typed_ = typed;
    due_.start();
}

void MatchList::Forget() {
    due_.stop();
    hide();
}

bool MatchList::Ask() {
    if (due_.isActive())
        read();
    return isVisible();
}

void MatchList::read() {
    due_.stop();
    std::vector<PatientMatch> matches;
    db::Ignoring([&] { matches = MatchingPatients(typed_, MostMatches + 1); });
    if (matches.size() < 2) {
        hide();
        return;
    }
    lblmore->setVisible(matches.size() > MostMatches);
    matches.resize(std::min(matches.size(), std::size_t{MostMatches}));
    lstmatches->Clear();
    for (const PatientMatch& match : matches)
        lstmatches->AddRow({match.name, match.birthDate.isValid() ? ShortDateText(match.birthDate) : QString(),
                            match.account, match.homePhone},
                           match.id);
    PlaceBelowBox();
    show();
    raise();
    lstmatches->SelectRow(0);
}

void MatchList::PlaceBelowBox() {
    const QPoint below = box_.mapTo(&form_, QPoint(0, box_.height() + Space(4)));
    const int margin = Space(16);
    const int lines = std::min(lstmatches->RowCount(), MostLines) + 1;
    const int height = lines * lstmatches->sizeHintForRow(0) + layout()->contentsMargins().top() * 2 + Space(16) +
                       (lblmore->isVisibleTo(this) ? lblmore->sizeHint().height() + Space(4) : 0);
    setGeometry(margin, below.y(), form_.width() - 2 * margin, std::min(height, form_.height() - below.y() - Space(4)));
}

bool MatchList::MoveMark(const QKeyEvent& key) {
    const int page = MostLines - 1;
    int step = 0;
    switch (key.key()) {
        case Qt::Key_Up:
            step = -1;
            break;
        case Qt::Key_Down:
            step = 1;
            break;
        case Qt::Key_PageUp:
            step = -page;
            break;
        case Qt::Key_PageDown:
            step = page;
            break;
        default:
            return false;
    }
    lstmatches->SelectRow(std::clamp(lstmatches->SelectedRow() + step, 0, lstmatches->RowCount() - 1));
    return true;
}

QString MatchList::MarkedId() const {
    return lstmatches->ItemData(lstmatches->SelectedRow()).toString();
}

// The focus stays in the box, and who listens to it hears of the marked patient there.
void MatchList::tellMark() {
    const int row = lstmatches->SelectedRow();
    if (row < 0)
        return;
    box_.setAccessibleDescription(tr("%1 patients fit. Marked: %2")
                                      .arg(lstmatches->RowCount())
                                      .arg(lstmatches->Cells(row).join(QLatin1String(", "))));
    QAccessibleEvent told(&box_, QAccessible::DescriptionChanged);
    QAccessible::updateAccessibility(&told);
}
