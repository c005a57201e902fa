#include "platform/files/writeall.h"

#include <QByteArray>
#include <QFileDevice>

namespace files {

bool WriteAll(QFileDevice& file, const QByteArray& bytes) {
    // A disk that is nearly full takes a part of the bytes without an error. The next try writes the rest or learns why
    // it cannot be written.
    for (qint64 written = 0; written < bytes.size();) {
        const qint64 more = file.write(bytes.constData() + written, bytes.size() - written);
        if (more <= 0)
            return false;
        written += more;
    }
    return file.flush() || file.flush();
}

}  // namespace files
