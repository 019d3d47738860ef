#include "phone/remote.h"

#include <fcntl.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstring>

#include "cli/files.h"
#include "cli/terminal.h"

namespace command {
namespace {

constexpr const char* letters = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789";

bool consists_of(const std::string& text, const std::string& characters) {
    return !text.empty() && text[0] != '-' && text.find_first_not_of(letters + characters) == text.npos;
}

[[noreturn]] void not_started(const std::string& program, int error) {
    throw Unusable(program, error == ENOENT ? "it is not installed, or not in PATH"
                                            : std::string("it cannot be started: ") + std::strerror(error));
}

/// Beginning with "/" or "./", a path is neither an option nor a place on another machine.
std::string plain_path(const std::string& file) {
    return file.starts_with('/') || file.starts_with("./") ? file : "./" + file;
}

}  // namespace

std::string RemotePhone::name() const { return user.empty() ? host : user + "@" + host; }

std::vector<std::string> RemotePhone::run(const std::string& script) const {
    std::vector<std::string> words{"ssh"};
    if (port) words.insert(words.end(), {"-p", std::to_string(port)});
    words.insert(words.end(), {name(), script});
    return words;
}

std::vector<std::string> RemotePhone::copy(const std::vector<std::string>& files,
                                           const std::string& folder) const {
    std::vector<std::string> words{"scp", "-q"};
    if (port) words.insert(words.end(), {"-P", std::to_string(port)});
    for (const std::string& file : files) words.push_back(plain_path(file));
    const bool has_colons = host.find(':') != host.npos;
    words.push_back((user.empty() ? "" : user + "@") + (has_colons ? "[" + host + "]" : host) + ":" + folder);
    return words;
}

RemotePhone remote_phone(const std::string& text) {
    const std::string expected = ", expected USER@HOST";
    const size_t at = text.find('@');
    RemotePhone phone;
    std::string host = text;
    if (at != text.npos) {
        phone.user = text.substr(0, at);
        host = text.substr(at + 1);
        if (!consists_of(phone.user, "_-.+"))
            throw Unusable(one_line(text), "found the user " + in_quotes(phone.user) + expected);
    }
    const bool in_brackets = host.size() > 2 && host.starts_with('[') && host.ends_with(']');
    phone.host = in_brackets ? host.substr(1, host.size() - 2) : host;
    constexpr size_t longest_host = 253;  // of the names that the internet has
    if (phone.host.size() > longest_host || !consists_of(phone.host, in_brackets ? ":.%" : "_-."))
        throw Unusable(one_line(text), "found the host " + in_quotes(host) + expected +
                                           "; an address with colons stands in brackets");
    return phone;
}

int run_program(const std::vector<std::string>& command, std::string* output) {
    int answer[2], failure[2];
    if (pipe2(answer, O_CLOEXEC) != 0 || pipe2(failure, O_CLOEXEC) != 0) not_started(command[0], errno);
    const pid_t child = fork();
    if (child < 0) not_started(command[0], errno);
    if (child == 0) {
        prctl(PR_SET_PDEATHSIG, SIGTERM);
        dup2(output ? answer[1] : STDERR_FILENO, STDOUT_FILENO);
        std::vector<char*> words;
        for (const std::string& word : command) words.push_back(const_cast<char*>(word.c_str()));
        words.push_back(nullptr);
        execvp(words[0], words.data());
        const int error = errno;
        [[maybe_unused]] const ssize_t sent = ::write(failure[1], &error, sizeof error);
        _exit(127);
    }
    close(answer[1]);
    close(failure[1]);
    int error = 0;
    const ssize_t received = ::read(failure[0], &error, sizeof error);
    close(failure[0]);
    char bytes[4096];
    for (ssize_t count; output && (count = ::read(answer[0], bytes, sizeof bytes)) != 0;) {
        if (count < 0 && errno == EINTR) continue;
        if (count < 0) break;
        // A phone that never stops talking is not believed.
        if (output->size() < largest_input) output->append(bytes, static_cast<size_t>(count));
    }
    close(answer[0]);
    int status = 0;
    while (waitpid(child, &status, 0) < 0 && errno == EINTR) {
    }
    if (received == sizeof error) not_started(command[0], error);
    if (WIFSIGNALED(status))
        throw Unusable(command[0], std::string("it was stopped: ") + strsignal(WTERMSIG(status)));
    return WEXITSTATUS(status);
}

}  // namespace command
