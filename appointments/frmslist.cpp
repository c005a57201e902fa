#include "appointments/frmslist.h"

#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

#include "platform/theme/icon.h"
#include "platform/theme/theme.h"

frmslist::frmslist(QWidget* parent) : QDialog(parent) {
    setObjectName(QStringLiteral("frmslist"));
    setWindowTitle(tr("Sample Dates"));
    List1 = new QListWidget(this);
    List1->setObjectName(QStringLiteral("List1"));
    List1->setAccessibleName(tr("Dates"));
    List1->setUniformItemSizes(true);
    auto* close = new QPushButton(tr("&Close"), this);
    close->setDefault(true);
    connect(close, &QPushButton::clicked, this, &QDialog::accept);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(Space(16), Space(16), Space(16), Space(16));
    column->setSpacing(Space(12));
    column->addWidget(List1, 1);
    column->addWidget(close, 0, Qt::AlignRight);
    resize(fontMetrics().averageCharWidth() * 46, fontMetrics().height() * 24);
}

void frmslist::AddDate(const QString& date, const QString& note, bool warns) {
    auto* item = new QListWidgetItem(note.isEmpty() ? date : date + QStringLiteral("   ") + note, List1);
    if (warns && !note.isEmpty())
        item->setIcon(Icon("warning"));
}
