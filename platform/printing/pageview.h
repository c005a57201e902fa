#pragma once

#include <QAbstractScrollArea>

namespace printing {
class PageLayout;
}

/// The pages of a document under each other. Only the pages in sight are painted, so that a document of thousands of
/// pages costs no more than a short one.
///
/// Keys: the arrows and Page Up and Page Down scroll, Home and End go to the beginning and the end. The mouse drags the
/// pages.
class PageView : public QAbstractScrollArea {
    Q_OBJECT

  public:
    explicit PageView(QWidget* parent = nullptr);

    /// Shows other pages, or the same ones divided anew. The place in the document stays. The pages must outlive the
    /// view or be replaced by others; null shows nothing.
    void ShowPages(const printing::PageLayout* pages);
    /// Called when the pages have become more. What is in sight stays.
    void PagesAdded();

    /// Sets the size at which the pages are shown. They stay as wide or as high as the window when it changes its size,
    /// until SetZoom.
    void FitWidth();
    void FitPage();
    void SetZoom(double zoom);
    /// 1 is the size on paper.
    [[nodiscard]] double Zoom() const { return zoom_; }

    /// The page in view, from 0.
    [[nodiscard]] int CurrentPage() const { return current_; }
    /// Scrolls to the beginning of the page.
    void GoTo(int page);

  Q_SIGNALS:
    void CurrentPageChanged();

  protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void changeEvent(QEvent* event) override;

  private:
    enum class Fit { None, Width, Page };

    [[nodiscard]] int pageCount() const;
    /// The size of a page in pixels, at the present zoom and at that of the paper.
    [[nodiscard]] QSizeF pageSize() const { return paperSize() * zoom_; }
    [[nodiscard]] QSizeF paperSize() const;
    [[nodiscard]] double step() const;
    /// The place of a page in the window, in pixels.
    [[nodiscard]] QRectF sheet(int page) const;
    void fit();
    /// Changes the zoom and keeps what is at the upper edge of the window there.
    void zoomTo(double zoom);
    void setBars();
    void followScrolling();

    const printing::PageLayout* pages_ = nullptr;
    double zoom_ = 1;
    Fit fit_ = Fit::Width;
    int current_ = 0;
    bool going_ = false;  ///< GoTo scrolls.
    QPoint grabbed_;      ///< Where the mouse was last while it drags.
};
