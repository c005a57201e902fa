#pragma once

#include <QGenericPlugin>
#include <QSocketNotifier>

/// Loaded by Qt into a running program; see RemoteHand.
class RemoteHandPlugin : public QGenericPlugin {
    Q_OBJECT
    Q_PLUGIN_METADATA(IID QGenericPluginFactoryInterface_iid FILE "remotehand.json")

  public:
    QObject* create(const QString& name, const QString& specification) override;
};

/// Obeys the lines of the standard input within the program's own event loops, the ones of its modal dialogs included,
/// and answers each with one line on the standard output: "ok", "ok" and a text behind a blank, or "no" and a reason.
/// The words of a line are parted by tabs.
class RemoteHand : public QObject {
    Q_OBJECT

  public:
    RemoteHand();

  private:
    void readInput();
    void obeyNext();
    void obey(const QStringList& words);
    void await(const QStringList& words, int triesLeft);
    void answerWhenIdle(const QString& answer, int rounds);
    void answer(const QString& text);

    QSocketNotifier input_;
    QByteArray received_;
    bool busy_ = false;
};
