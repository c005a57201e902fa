// svscheduler-demo-notes: stands for the notes program where there is only the demo. It shows the note that it was
// started with, "{session id}|{user id}|{mode}|{patient id}".

#include <QApplication>
#include <QMessageBox>
#include <QStringList>

namespace {

QString sentenceFor(const QStringList& fields) {
    if (fields.size() != 4)
        return QStringLiteral("Here the notes program opens.");
    const bool isNew = fields[2] == QLatin1String("1");
    return QStringLiteral("Here the notes program opens %1 note %2 of patient %3 for %4.")
        .arg(isNew ? QStringLiteral("the new") : QStringLiteral("the"), fields[0], fields[3], fields[1]);
}

}  // namespace

int main(int argc, char** argv) {
    const QApplication app(argc, argv);
    const QStringList fields = QApplication::arguments().value(1).split(QLatin1Char('|'));
    QMessageBox box(QMessageBox::NoIcon, QStringLiteral("Notes program (demo)"), sentenceFor(fields),
                    QMessageBox::Close);
    box.setTextFormat(Qt::PlainText);
    box.setInformativeText(QStringLiteral("The demo practice has no notes program. This window stands for it."));
    box.exec();
    return 0;
}
