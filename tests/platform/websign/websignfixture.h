#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <QSignalSpy>
#include <QWidget>

#include "platform/signature/websurfaceplugin.h"
#include "tests/platform/websign/signatureservice.h"

/// The panel of a form with the real browser in it, and a signature service on this computer. Where the browser is not
/// built, the tests are skipped.
class WebSignature : public testing::Test {
  protected:
    WebSignature();
    void SetUp() override;

    /// Makes the browser anew with these limits.
    void open(const WebSurfaceLimits& limits);
    /// Waits until the page that was asked for is loaded, and returns its address; a failed load fails the test.
    QString completed();
    /// Waits until a load has failed, and returns the reason; a load that ends well fails the test.
    QString failure();
    /// The text of the page that is shown.
    QString bodyText();
    /// Whether the browser waits for a page or an answer.
    [[nodiscard]] bool isWaiting() const;
    /// Lets the browser's patience end now, whatever it waits for.
    void endPatience();
    /// Whether the browser says nothing more by the time that it has answered another question.
    bool isSilent();
    /// The widget that takes mouse and keys for the page.
    [[nodiscard]] QWidget* page() const;

    SignatureService service;
    QWidget panel;
    WebSurface* surface = nullptr;
    std::unique_ptr<QSignalSpy> complete, failed;
};

/// The folder that the build puts the browser into, and whether it is there.
[[nodiscard]] QString PluginFolder();
[[nodiscard]] bool IsBrowserBuilt();
