#pragma once

#include <functional>
#include <QString>
#include <QWidget>

/// A browser window inside a form, with what the electronic signature asks of the page that is shown in it.
///
/// Every load that was started ends in exactly one of the two signals. A load that the next one replaced ends in none.
class WebSurface : public QWidget {
    Q_OBJECT

  public:
    using QWidget::QWidget;

    /// Shows the page at this address, which is http, https or "about:blank". Any other address is a failed load. The
    /// signal never comes before this call returns.
    virtual void Navigate(const QString& address) = 0;
    /// Loads the page that is shown again from its service. After a failed load, it begins anew with the address that
    /// Navigate was given last.
    virtual void Refresh() = 0;
    /// Sets an attribute of the page's Body. It does nothing where no page is shown.
    virtual void SetBodyAttribute(const QString& name, const QString& value) = 0;
    /// Reads the text of the page's Body as a user sees it (its OuterText) and gives it to `callback` later. A text
    /// that is too long for a signature becomes LoadFailed instead. The callback is not called once the page or the
    /// surface has gone.
    virtual void ReadBodyText(std::function<void(const QString& text)> callback) = 0;
    /// Clicks each input element of the page whose value is exactly this one.
    virtual void ClickInputs(const QString& value) = 0;

  Q_SIGNALS:
    /// A page has been loaded whole, also one that the page shown went to by itself. The address is the page's own,
    /// after all redirections.
    void DocumentComplete(const QString& address);
    /// A page could not be loaded or has stopped working. The reason is a sentence for the user.
    void LoadFailed(const QString& reason);
};

/// Makes a web surface inside `parent`. The browser is a plugin beside the program, and the first call loads it, which
/// takes a moment. Returns null where it is not installed or does not load, and tells so in `why`, a sentence for the
/// user.
[[nodiscard]] WebSurface* LoadWebSurface(QWidget* parent, QString* why);

/// LoadWebSurface calls this function to make the surface. A test puts its own in its place.
using WebSurfaceMaker = std::function<WebSurface*(QWidget* parent, QString* why)>;
WebSurfaceMaker& MakeWebSurface();
/// Returns the function that the program itself uses: the plugin beside the program.
[[nodiscard]] WebSurfaceMaker WebSurfacePluginMaker();
