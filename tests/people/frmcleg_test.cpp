#include "people/frmcleg.h"

#include <gtest/gtest.h>

#include <QImage>
#include <QLabel>
#include <set>

TEST(ColorLegend, NamesEveryColorWithASwatchOfItsOwn) {
    frmcleg legend;
    EXPECT_EQ(legend.windowTitle(), QStringLiteral("Color Legend"));
    QStringList texts;
    for (const QLabel* label : legend.findChildren<QLabel*>(QStringLiteral("lblctext")))
        texts << label->text();
    EXPECT_EQ(texts, (QStringList{"Pending Appointment with Patient", "Tentative Appointment with Patient",
                                  "Kept Appointment with Patient", "Missed/Cancelled Appointment with Patient",
                                  "Activity/Event", "Unavailable Time", "Holiday", "Group Therapy"}));
    legend.show();
    std::set<QByteArray> pictures;
    for (QWidget* swatch : legend.findChildren<QWidget*>(QStringLiteral("lblcolorcode"))) {
        const QImage picture = swatch->grab().toImage();
        pictures.insert(QByteArray(reinterpret_cast<const char*>(picture.constBits()), picture.sizeInBytes()));
    }
    EXPECT_EQ(pictures.size(), 8U);
}
