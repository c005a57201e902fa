#pragma once

#include <functional>
#include <QDialog>
#include <QStringList>

#include "platform/printing/printpreview.h"
#include "tests/support/scripteddesk.h"

/// What the preview shows that `command` opens, when the user only looks at it.
[[nodiscard]] inline printing::Document PreviewOf(ScriptedDesk& desk, const std::function<void()>& command) {
    printing::Document document;
    desk.expectForm("frmpreview", [&document](QDialog& preview) {
        document = preview.findChild<PrintPreview*>()->Document();
        preview.reject();
    });
    command();
    return document;
}

/// The texts of a document's paragraphs.
[[nodiscard]] inline QStringList ParagraphsOf(const printing::Document& document) {
    QStringList texts;
    for (const printing::Block& block : document.blocks)
        if (const auto* paragraph = std::get_if<printing::Paragraph>(&block))
            texts << paragraph->text;
    return texts;
}
