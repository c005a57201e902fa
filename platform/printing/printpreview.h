#pragma once

#include <memory>
#include <QWidget>

#include "platform/printing/printdocument.h"

class QAction;
class QKeySequence;
class QLabel;
class QSpinBox;
class QToolBar;
class PageView;
namespace printing {
class PageLayout;
}

/// Shows the pages of a document and offers the commands to look at them: first, previous, next and last page, a page
/// by its number, larger, smaller, as wide as the window, the whole page, and the paper upright or across. A form puts
/// its own buttons around it.
///
/// Keys: Ctrl+Home, Ctrl+Page Up, Ctrl+Page Down and Ctrl+End for the pages, Ctrl with plus, minus, 1 (width) and 0
/// (whole page) for the size, Ctrl+L for the paper.
class PrintPreview : public QWidget {
    Q_OBJECT

  public:
    explicit PrintPreview(QWidget* parent = nullptr);
    ~PrintPreview() override;

    /// Shows a document from its first page on, as wide as the window until the user chooses another size.
    void ShowDocument(const printing::Document& document);
    /// Shows what the document has gained at its end since ShowDocument or the last Grow. Page, size and paper stay as
    /// the user chose them. Both calls together take a time that is proportional to the document's length, however
    /// often it grows.
    void Grow(const printing::Document& document);
    /// Lets the user choose a printer and prints. Shows a box when there is no printer or printing fails. Returns true
    /// when the document has gone to the printer.
    bool Print();
    /// Lets the user choose a file and writes a PDF. Shows a box when that fails. Returns the file's path, or an empty
    /// text when no file was written.
    QString SaveAsPdf();

    /// The document with the paper as the user turned it.
    [[nodiscard]] const printing::Document& Document() const { return document_; }
    [[nodiscard]] int PageCount() const;
    /// The page in view, from 1.
    [[nodiscard]] int CurrentPage() const;
    /// The size of the pages. 1 is the size on paper.
    [[nodiscard]] double Zoom() const;

  private:
    void buildToolBar();
    void addPageCommands();
    void addZoomCommands();
    QAction* command(const char* name, const QString& text, const char* icon, const QKeySequence& key);
    void turnPaper(bool across);
    void layOut();
    void followPage();
    void goTo(int page);
    void zoomBy(double factor);
    /// Writes the PDF. A long one tells how far it is, and can be cancelled. Returns whether it is there.
    bool save(const QString& path);

    printing::Document document_;
    QToolBar* toolBar_ = nullptr;
    PageView* pages_ = nullptr;
    QSpinBox* txtpage_ = nullptr;
    QLabel* lblpages_ = nullptr;
    QAction* first_ = nullptr;
    QAction* previous_ = nullptr;
    QAction* next_ = nullptr;
    QAction* last_ = nullptr;
    QAction* across_ = nullptr;
    std::unique_ptr<printing::PageLayout> laid_;
};
