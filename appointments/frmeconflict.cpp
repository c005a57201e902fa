#include "appointments/frmeconflict.h"

#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

#include "appointments/notice.h"
#include "platform/controls/formparts.h"
#include "platform/text/plaintext.h"
#include "platform/theme/theme.h"

frmeConflict::frmeConflict(QWidget* parent) : QDialog(parent) {
    setObjectName(QStringLiteral("frmeConflict"));
    setWindowTitle(QStringLiteral("Appointment Conflict"));
    List1 = new QListWidget(this);
    List1->setObjectName(QStringLiteral("List1"));
    List1->setAccessibleName(QStringLiteral("Providers with a conflict"));
    List1->setSpacing(Space(4) / 2);
    cmdreschedule = new QPushButton(QStringLiteral("&Close"), this);
    cmdreschedule->setObjectName(QStringLiteral("cmdreschedule"));
    cmdreschedule->setDefault(true);

    auto* text = new QVBoxLayout;
    text->addWidget(NoticeLabel(QStringLiteral("lblmessage"),
                                QStringLiteral("The following providers have conflict on the selected Date and Time:"),
                                this));
    auto* buttons = ButtonRow({cmdreschedule});
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(Space(16), Space(16), Space(16), Space(16));
    column->setSpacing(Space(12));
    column->addLayout(NoticeLayout(text, this));
    column->addWidget(List1, 1);
    column->addLayout(buttons);
    cmdreschedule->setFocus();
    connect(cmdreschedule, &QPushButton::clicked, this, &QDialog::accept);
}

void frmeConflict::AddProvider(const QString& name, const QString& tip) {
    auto* row = new QListWidgetItem(name, List1);
    row->setToolTip(tip.isEmpty() ? QString() : TipText(tip));
    row->setData(Qt::AccessibleDescriptionRole, tip);  // For who has no pointer to rest.
}
