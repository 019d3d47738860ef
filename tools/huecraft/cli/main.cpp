// huecraft: the command for those who make themes.
#include <fcntl.h>
#include <unistd.h>

#include "cli/run.h"

namespace command {
namespace {

/// With a standard stream closed, the first file that is opened would take its place, and be written to in
/// its stead.
void fill_standard_streams() {
    for (int stream = STDIN_FILENO; stream <= STDERR_FILENO; ++stream)
        if (fcntl(stream, F_GETFD) < 0)
            // Reading it, or writing to it, fails as before.
            open("/dev/null", stream == STDIN_FILENO ? O_WRONLY : O_RDONLY);
}

}  // namespace
}  // namespace command

int main(int argc, char** argv) {
    command::fill_standard_streams();
    return command::run({argv + 1, argv + argc});
}
