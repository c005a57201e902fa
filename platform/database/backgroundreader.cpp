#include "platform/database/backgroundreader.h"

#include <chrono>
#include <condition_variable>
#include <mutex>
#include <QCoreApplication>
#include <thread>
#include <utility>

namespace db {

/// What both threads share. Both own it, so that a thread whose read never ends can be left to itself.
struct BackgroundReader::Shared {
    std::mutex mutex;
    std::condition_variable changed;
    std::function<void()> job;  ///< Empty while there is nothing to read.
    bool ending = false;
    std::thread thread;
    // The reader's thread alone uses these.
    std::unique_ptr<Engine> engine;
    std::optional<DatabaseError> replaced;  ///< The failure by which the database was found to be another one.
};

namespace {

using Answer = BackgroundReader::Answer;

/// The threads that are alive, those left to themselves too. The program waits for them before it ends, since they use
/// what goes with it; a database that does not answer then holds it up no longer than this.
struct Threads {
    static constexpr std::chrono::seconds PatienceAtEnd{3};

    std::mutex mutex;
    std::condition_variable fewer;
    int count = 0;

    void add(int more) {
        const std::lock_guard lock(mutex);
        count += more;
        fewer.notify_all();
    }
    void awaitEnd() {
        std::unique_lock lock(mutex);
        fewer.wait_for(lock, PatienceAtEnd, [this] { return count == 0; });
    }
};

/// Never destroyed, for a thread that outlives the program's end.
Threads& threads() {
    static auto* all = [] {
        auto* made = new Threads;
        qAddPostRoutine([] { threads().awaitEnd(); });
        return made;
    }();
    return *all;
}

/// Adds the tables of the statements that are still without one. Throws DatabaseError.
void readRest(Engine& engine, const QStringList& statements, std::vector<ResultTable>& tables) {
    while (static_cast<qsizetype>(tables.size()) < statements.size()) {
        const QStringList rest = statements.mid(static_cast<qsizetype>(tables.size()));
        std::vector<ResultTable> read = engine.queryTogether(rest);
        // What failed among the others is sent alone, for its reason.
        if (read.empty())
            read.push_back(engine.query(rest.front()));
        for (ResultTable& table : read)
            tables.push_back(std::move(table));
    }
}

/// Once the database is another one, a session made anew would read that one and not tell.
Answer answerOf(std::unique_ptr<Engine>& engine, std::optional<DatabaseError>& replaced,
                const BackgroundReader::MakeEngine& make, const QStringList& statements) {
    Answer answer;
    answer.failure = replaced;
    if (replaced)
        return answer;
    const bool wasOpen = engine != nullptr;
    try {
        if (!engine)
            engine = make();
        readRest(*engine, statements, answer.tables);
    } catch (const DatabaseError& error) {
        answer.failure = error;
    }
    if (!engine || !answer.failure || engine->link() == Link::Whole)
        return answer;
    const bool isCut = engine->link() == Link::Cut;
    engine.reset();
    if (!isCut)
        replaced = answer.failure;
    return wasOpen && isCut ? answerOf(engine, replaced, make, statements) : answer;
}

}  // namespace

BackgroundReader::BackgroundReader()
    : shared_(std::make_shared<Shared>()), self_(std::make_shared<BackgroundReader*>(this)) {
    threads().add(1);
    shared_->thread = std::thread([shared = shared_]() mutable {
        std::unique_lock lock(shared->mutex);
        for (;;) {
            shared->changed.wait(lock, [&] { return shared->job || shared->ending; });
            if (!shared->job)
                break;
            const std::function<void()> job = std::exchange(shared->job, nullptr);
            lock.unlock();
            job();
            lock.lock();
        }
        lock.unlock();
        shared->engine.reset();
        shared.reset();
        threads().add(-1);
    });
}

BackgroundReader::~BackgroundReader() {
    *self_ = nullptr;
    {
        const std::lock_guard lock(shared_->mutex);
        shared_->ending = true;
    }
    shared_->changed.notify_all();
    if (reading_)
        shared_->thread.detach();
    else
        shared_->thread.join();
}

void BackgroundReader::Read(MakeEngine make, QStringList statements, std::function<void(Answer)> done) {
    if (std::exchange(reading_, true))
        return;
    const auto tell = [self = self_, done = std::move(done)](Answer answer) {
        if (*self == nullptr)
            return;
        (*self)->reading_ = false;
        done(std::move(answer));
    };
    {
        const std::lock_guard lock(shared_->mutex);
        shared_->job = [shared = shared_.get(), make = std::move(make), statements = std::move(statements), tell] {
            auto answer = std::make_shared<Answer>(answerOf(shared->engine, shared->replaced, make, statements));
            if (QCoreApplication* program = QCoreApplication::instance())
                QMetaObject::invokeMethod(
                    program, [tell, answer] { tell(std::move(*answer)); }, Qt::QueuedConnection);
        };
    }
    shared_->changed.notify_all();
}

}  // namespace db
