#pragma once

#include <QPointer>
#include <QStringList>
#include <utility>

#include "platform/signature/websurface.h"

/// A browser that obeys the test: it keeps what the form asks of it, and a page is loaded, fails or answers when the
/// test says so.
class ScriptedSurface : public WebSurface {
  public:
    using WebSurface::WebSurface;

    void Navigate(const QString& address) override { asked << QStringLiteral("navigate ") + address; }
    void Refresh() override { asked << QStringLiteral("refresh"); }
    void SetBodyAttribute(const QString& name, const QString& value) override {
        asked << QStringLiteral("attribute %1=%2").arg(name, value);
    }
    void ReadBodyText(std::function<void(const QString&)> callback) override {
        asked << QStringLiteral("read");
        reading = std::move(callback);
    }
    void ClickInputs(const QString& value) override { asked << QStringLiteral("click ") + value; }

    /// The page at this address is loaded.
    void load(const QString& address) { Q_EMIT DocumentComplete(address); }
    /// The page at this address is loaded, and says this when it is asked.
    void load(const QString& address, const QString& text) {
        load(address);
        answer(text);
    }
    void answer(const QString& text) {
        if (const auto callback = std::exchange(reading, {}))
            callback(text);
    }
    void fail(const QString& reason) { Q_EMIT LoadFailed(reason); }

    QStringList asked;
    std::function<void(const QString&)> reading;
};
