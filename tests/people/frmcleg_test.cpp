#include "people/frmcleg.h"

#include <gtest/gtest.h>

#include <QImage>
#include <QLabel>
#include <QSet>
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

TEST(ColorLegend, TellsBesideTheColorsEverySignThatTheCalendarDraws) {
    frmcleg legend;
    legend.show();
    QStringList texts;
    for (const QLabel* label : legend.findChildren<QLabel*>(QStringLiteral("lblmarktext")))
        texts << label->text();
    EXPECT_EQ(texts.size(), 20);
    EXPECT_EQ(QSet<QString>(texts.begin(), texts.end()).size(), texts.size());
    for (const char* sign :
         {"One of a series", "The time now", "Hours without work", "Place", "On the shelf", "Selected appointment"})
        EXPECT_TRUE(texts.contains(QLatin1String(sign))) << sign;
    const QList<QWidget*> swatches = legend.findChildren<QWidget*>(QStringLiteral("lblmark"));
    ASSERT_EQ(swatches.size(), texts.size());
    std::set<QByteArray> pictures;
    for (QWidget* swatch : swatches) {
        const QImage picture = swatch->grab().toImage();
        pictures.insert(QByteArray(reinterpret_cast<const char*>(picture.constBits()), picture.sizeInBytes()));
        EXPECT_EQ(swatch->accessibleName(), texts.value(static_cast<int>(swatches.indexOf(swatch))));
    }
    EXPECT_EQ(pictures.size(), static_cast<std::size_t>(texts.size())) << "each is drawn, and none like another";
}

TEST(ColorLegend, FitsTheSmallestScreen) {
    frmcleg legend;
    legend.show();
    EXPECT_LE(legend.width(), 1024);
    EXPECT_LE(legend.height(), 660);
}
