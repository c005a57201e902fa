#pragma once

#include <QByteArray>
#include <QString>

/// Puts bytes into a file, and reads them back; a failure fails the test.
void PutFile(const QString& path, const QByteArray& bytes);
[[nodiscard]] QByteArray FileBytes(const QString& path);
