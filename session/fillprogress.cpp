#include "session/fillprogress.h"

#include "session/listfiller.h"

namespace {

constexpr int Percent = 100;

}  // namespace

FillProgress::FillProgress(const ListFiller& filler, QWidget* parent) : QProgressBar(parent) {
    setObjectName(QStringLiteral("pnlprogress"));
    setRange(0, Percent);
    setAccessibleName(tr("Loading"));
    QSizePolicy keeping = sizePolicy();
    keeping.setRetainSizeWhenHidden(true);
    setSizePolicy(keeping);
    hide();
    connect(&filler, &ListFiller::Progress, this, &FillProgress::follow);
}

void FillProgress::follow(int loaded, int total) {
    if (total < 0)
        setValue(0);
    else
        setValue(total == 0 ? Percent : static_cast<int>(qint64{loaded} * Percent / total));
    setVisible(loaded < total || total < 0);
}
