#pragma once

#include <gtest/gtest.h>

#include <QAction>
#include <QMap>
#include <QMenu>
#include <QMenuBar>

/// The Alt letter of a menu's text, or "" when it has none.
inline QString LetterOf(const QString& text) {
    const QString shown = text.section(QLatin1Char('\t'), 0, 0);
    for (qsizetype i = 0; i + 1 < shown.size(); ++i) {
        if (shown[i] != u'&')
            continue;
        if (shown[i + 1] != u'&')
            return shown[i + 1].toUpper();
        ++i;
    }
    return {};
}

/// Every letter goes to one entry, and every entry that is no separator has one.
inline void ExpectEachLetterOnce(const QList<QAction*>& entries, const QString& where) {
    QMap<QString, QString> taken;
    for (const QAction* entry : entries) {
        if (entry->isSeparator() || !entry->isVisible())
            continue;
        const QString letter = LetterOf(entry->text());
        EXPECT_NE(letter, "") << where.toStdString() << ": " << entry->text().toStdString();
        EXPECT_FALSE(taken.contains(letter)) << where.toStdString() << ": " << entry->text().toStdString() << " and "
                                             << taken.value(letter).toStdString();
        taken.insert(letter, entry->text());
    }
}

/// Every greyed command has a tip that is a sentence, and not its own text.
inline void ExpectEachGreyedCommandSaysWhy(const QMenuBar& bar) {
    for (const QMenu* menu : bar.findChildren<QMenu*>()) {
        EXPECT_TRUE(menu->toolTipsVisible()) << menu->title().toStdString();
        for (const QAction* entry : menu->actions()) {
            if (entry->isSeparator() || !entry->isVisible() || entry->isEnabled())
                continue;
            EXPECT_TRUE(entry->toolTip().endsWith(u'.'))
                << menu->title().toStdString() << ": " << entry->text().toStdString() << " says only "
                << entry->toolTip().toStdString();
        }
    }
}
