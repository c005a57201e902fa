#include "platform/database/backgroundengine.h"

#include <chrono>
#include <condition_variable>
#include <mutex>
#include <QElapsedTimer>
#include <thread>

#include "platform/database/waiting.h"

namespace db {

namespace {

using std::chrono::milliseconds;

/// How often a shown wait checks whether the user has given up.
constexpr milliseconds betweenLooks{15};
/// How long an engine that was asked to give up may take to answer. A wait for a lock ends within this time.
constexpr int cancelMilliseconds = 4'000;

/// The state that the two threads share. Both own it, so that a thread that never gets its answer can be abandoned.
struct Shared {
    std::mutex mutex;
    std::condition_variable changed;
    std::unique_ptr<CancellableEngine> engine;  ///< Null before it is made.
    std::function<void()> job;                  ///< Empty while the engine has nothing to do.
    bool ending = false;
};

void serve(const std::shared_ptr<Shared>& shared) {
    std::unique_lock lock(shared->mutex);
    for (;;) {
        shared->changed.wait(lock, [&] { return shared->job || shared->ending; });
        if (!shared->job)
            break;
        lock.unlock();
        shared->job();
        lock.lock();
        shared->job = nullptr;
        shared->changed.notify_all();
    }
    lock.unlock();
    shared->engine.reset();
}

bool isLockTimeout(const DatabaseError& error) {
    constexpr int lockRequestTimeOut = 1222;
    return error.number == lockRequestTimeOut ||
           error.description.contains(QLatin1String("lock timeout"), Qt::CaseInsensitive);
}

class BackgroundEngine final : public Engine {
  public:
    BackgroundEngine() : thread_([shared = shared_] { serve(shared); }) {}
    ~BackgroundEngine() override;

    void make(const std::function<std::unique_ptr<CancellableEngine>()>& engine);

    qint64 execute(const QString& statement, const std::vector<Value>& bound) override {
        return answerOf<qint64>([=](Engine& engine) { return engine.execute(statement, bound); });
    }
    Numbered insertNumbered(const QString& statement, qsizetype valuesAt, const QString& identityColumn,
                            const std::vector<Value>& bound) override {
        return answerOf<Numbered>(
            [=](Engine& engine) { return engine.insertNumbered(statement, valuesAt, identityColumn, bound); });
    }
    [[nodiscard]] QString lockingHint() const override { return shared_->engine->lockingHint(); }
    ResultTable query(const QString& statement, const std::vector<Value>& bound, int mostRows) override {
        return answerOf<ResultTable>([=](Engine& engine) { return engine.query(statement, bound, mostRows); });
    }
    std::vector<ResultTable> queryTogether(const QStringList& statements) override {
        return answerOf<std::vector<ResultTable>>([=](Engine& engine) { return engine.queryTogether(statements); });
    }
    void begin() override {
        answerOf<bool>([](Engine& engine) { return engine.begin(), true; });
        begun_ = true;
    }
    void commit() override {
        answerOf<bool>([](Engine& engine) { return engine.commit(), true; });
        begun_ = false;
    }
    void rollback() override {
        begun_ = false;
        answerOf<bool>([](Engine& engine) { return engine.rollback(), true; });
    }
    bool inTransaction() override {
        return answerOf<bool>([](Engine& engine) { return engine.inTransaction(); });
    }
    [[nodiscard]] int mostRowsOfInsert(int columns) const override {
        return shared_->engine->mostRowsOfInsert(columns);  // The number never changes.
    }
    Link link() override { return leftAlone_ ? Link::Cut : shared_->engine->link(); }
    const TableInfo& describe(const QString& table) override {
        return *answerOf<const TableInfo*>([=](Engine& engine) { return &engine.describe(table); });
    }
    qint64 lastIdentity() override {
        return answerOf<qint64>([](Engine& engine) { return engine.lastIdentity(); });
    }
    [[nodiscard]] EngineFacts facts() override {
        return answerOf<EngineFacts>([](Engine& engine) { return engine.facts(); });
    }

  private:
    /// The outcome of a step. Both threads own it, so that an answer that comes too late still has a place to go.
    template <typename Answer>
    struct Outcome {
        Answer answer{};
        std::exception_ptr failure;
    };
    template <typename Answer>
    Answer answerOf(const std::function<Answer(Engine&)>& step);
    template <typename Answer>
    Answer once(const std::function<Answer(Engine&)>& step, const QElapsedTimer& since, ShownWait& shown);
    void start(std::function<void()> job);
    [[nodiscard]] bool answersWithin(milliseconds time);
    /// Returns false when the user gave up.
    bool wait(const QElapsedTimer& since, ShownWait& shown);

    std::shared_ptr<Shared> shared_ = std::make_shared<Shared>();
    std::thread thread_;
    bool begun_ = false;
    bool leftAlone_ = false;
};

BackgroundEngine::~BackgroundEngine() {
    {
        const std::lock_guard lock(shared_->mutex);
        shared_->ending = true;
    }
    shared_->changed.notify_all();
    if (leftAlone_)
        thread_.detach();
    else
        thread_.join();
}

void BackgroundEngine::make(const std::function<std::unique_ptr<CancellableEngine>()>& engine) {
    QElapsedTimer since;
    since.start();
    ShownWait shown;
    auto outcome = std::make_shared<Outcome<std::unique_ptr<CancellableEngine>>>();
    start([outcome, engine] {
        try {
            outcome->answer = engine();
        } catch (...) {
            outcome->failure = std::current_exception();
        }
    });
    if (!wait(since, shown))
        throw GivenUpError(false);
    if (outcome->failure)
        std::rethrow_exception(outcome->failure);
    shared_->engine = std::move(outcome->answer);
}

// The server waits for a lock in short pieces. After each piece it is certain that the statement did nothing. A wait
// can therefore also be given up with a server that does not listen while it waits.
template <typename Answer>
Answer BackgroundEngine::answerOf(const std::function<Answer(Engine&)>& step) {
    QElapsedTimer since;
    since.start();
    ShownWait shown;
    for (;;) {
        try {
            return once(step, since, shown);
        } catch (const DatabaseError& error) {
            if (!isLockTimeout(error) || since.elapsed() > LockTimeoutMilliseconds)
                throw;
            if (!shown.goesOn(since.elapsed()))
                throw GivenUpError(false);
            // Where the server has also ended the transaction, the repeated statement would be stored without the rest
            // of it.
            if (begun_ && !inTransaction())
                throw;
        }
    }
}

template <typename Answer>
Answer BackgroundEngine::once(const std::function<Answer(Engine&)>& step, const QElapsedTimer& since,
                              ShownWait& shown) {
    auto outcome = std::make_shared<Outcome<Answer>>();
    start([outcome, step, engine = shared_->engine.get()] {
        try {
            outcome->answer = step(*engine);
        } catch (...) {
            outcome->failure = std::current_exception();
        }
    });
    const bool waited = wait(since, shown);
    if (leftAlone_)
        throw GivenUpError(true);
    if (!outcome->failure)
        return std::move(outcome->answer);
    // The statement failed because it was cancelled, whatever reason the database gives.
    if (!waited)
        throw GivenUpError(false);
    std::rethrow_exception(outcome->failure);
}

void BackgroundEngine::start(std::function<void()> job) {
    {
        const std::lock_guard lock(shared_->mutex);
        shared_->job = std::move(job);
    }
    shared_->changed.notify_all();
}

bool BackgroundEngine::answersWithin(milliseconds time) {
    std::unique_lock lock(shared_->mutex);
    return shared_->changed.wait_for(lock, time, [this] { return !shared_->job; });
}

bool BackgroundEngine::wait(const QElapsedTimer& since, ShownWait& shown) {
    if (answersWithin(milliseconds(qMax<qint64>(0, UnnoticedWaitMilliseconds - since.elapsed()))))
        return true;
    while (shown.goesOn(since.elapsed()))
        if (answersWithin(betweenLooks))
            return true;
    // Nobody can interrupt a login.
    if (shared_->engine)
        shared_->engine->cancel();
    leftAlone_ = !shared_->engine || !answersWithin(milliseconds(cancelMilliseconds));
    return false;
}

}  // namespace

std::unique_ptr<Engine> InBackground(const std::function<std::unique_ptr<CancellableEngine>()>& make) {
    auto engine = std::make_unique<BackgroundEngine>();
    engine->make(make);
    return engine;
}

}  // namespace db
