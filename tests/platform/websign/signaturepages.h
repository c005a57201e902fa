#pragma once

#include <QByteArray>

// The two pages of a signature service, in the form in which a practice's service would serve them.

/// A canvas to draw on, a hint with "PLEASE" and the points drawn so far, and the buttons "Help" (to "/help") and
/// "Save Signature". That one goes to "/svsign" with the number of points and the signature as an open text. The end of
/// each stroke is told to the service as "/drawn".
extern const QByteArray SigningPage;

/// What stands at "/svsign": the signature's text and nothing else.
extern const QByteArray SignedPage;
