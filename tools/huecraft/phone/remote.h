// A phone at the other end of the user's own ssh.
#pragma once
#include <string>
#include <vector>

namespace command {

struct RemotePhone {
    std::string user;   ///< empty for ssh's own choice
    std::string host;   ///< without brackets
    unsigned port = 0;  ///< 0 for ssh's own choice

    std::string name() const;
    /// The words that run a script there.
    std::vector<std::string> run(const std::string& script) const;
    /// The words that copy files into a folder there, whose path needs no quotes.
    std::vector<std::string> copy(const std::vector<std::string>& files, const std::string& folder) const;
};

/// Throws Unusable for what ssh could take for something else than a host.
RemotePhone remote_phone(const std::string& text);

/// Runs a command and answers its exit status. What it prints goes into `output`, or to standard error
/// without one. Throws Unusable, naming the program, when it cannot be started or is stopped by a signal.
int run_program(const std::vector<std::string>& command, std::string* output = nullptr);

}  // namespace command
