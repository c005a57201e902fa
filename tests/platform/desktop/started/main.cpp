// A program for tests of starting programs. It writes what it got into "got.txt" of the folder that it was started in:
// a line for each argument, then what it holds of the one that started it.

#include <unistd.h>
#include <csignal>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <string>

namespace {

bool ignores(int signal) {
    struct sigaction now {};
    sigaction(signal, nullptr, &now);
    return now.sa_handler == SIG_IGN;
}

int openFiles() {
    int count = 0;
    for (const auto& file : std::filesystem::directory_iterator("/proc/self/fd"))
        count += std::stoi(file.path().filename()) > STDERR_FILENO;
    return count - 1;  // Without the one that lists them.
}

}  // namespace

int main(int argc, char** argv) {
    const int files = openFiles();
    {
        std::ofstream out("getting.txt");
        for (int i = 1; i < argc; ++i)
            out << "argument " << argv[i] << '\n';
        out << "files " << files << '\n';
        out << "output " << std::filesystem::read_symlink("/proc/self/fd/1").string() << '\n';
        out << "pipe " << (ignores(SIGPIPE) ? "ignored" : "usual") << '\n';
        out << "session " << getsid(0) << '\n';
    }
    return std::rename("getting.txt", "got.txt");
}
