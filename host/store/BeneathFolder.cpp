// Opening files below a folder, and nowhere else.
#include "store/BeneathFolder.h"

#include <otx/value/COtxException.h>

#include <fcntl.h>
#include <sys/stat.h>

#include <algorithm>
#include <cerrno>
#include <stdexcept>
#include <string_view>
#include <system_error>

namespace velkotx::host {

namespace {

using Kind = OTX::Exceptions_e;

// No waiting for the other end of a pipe, no terminal to be taken over.
constexpr int openPlainFile = O_RDONLY | O_NOFOLLOW | O_CLOEXEC | O_NONBLOCK | O_NOCTTY;
constexpr int openStep = O_PATH | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC;

std::string systemWords(int error) { return std::generic_category().message(error); }

[[noreturn]] void failToOpen(const std::string& name, int error) {
    switch (error) {
        case ENOENT:
        case ENOTDIR:
        case ENAMETOOLONG:
            throw COtxException(Kind::FileNotFoundException);
        case ELOOP:
            failStore(Kind::FileAccessException, name, "a symbolic link isn't followed");
        case EACCES:
        case EPERM:
            failStore(Kind::FileAccessException, name, systemWords(error));
        case EWOULDBLOCK:
        case ETXTBSY:
            failStore(Kind::FileLockException, name, systemWords(error));
        default:
            failStore(Kind::FileOpenException, name, systemWords(error));
    }
}

bool isLink(int folder, const std::string& step) {
    struct stat status {};
    return fstatat(folder, step.c_str(), &status, AT_SYMLINK_NOFOLLOW) == 0 && S_ISLNK(status.st_mode);
}

Descriptor openAt(int folder, const std::string& step, int flags, const std::string& name) {
    int number = -1;
    do {
        number = openat(folder, step.c_str(), flags);
    } while (number < 0 && errno == EINTR);
    if (number < 0) {
        const int error = errno;
        // The system says of a link that should be a folder that it is none.
        failToOpen(name, error == ENOTDIR && isLink(folder, step) ? ELOOP : error);
    }
    return Descriptor(number);
}

void requirePlainFile(const Descriptor& file, const std::string& name) {
    struct stat status {};
    if (fstat(file.number(), &status) != 0)
        failToOpen(name, errno);
    if (!S_ISREG(status.st_mode))
        failStore(Kind::FileOpenException, name, "no plain file");
}

// A zero byte would end the text for whoever reads it as the system does.
std::string shown(const std::string& name) {
    std::string text;
    for (const char byte : name) {
        if (byte == '\0')
            text += "\\0";
        else
            text += byte;
    }
    return text;
}

}  // namespace

void failStore(OTX::Exceptions_e kind, const std::string& name, const std::string& reason) {
    throw COtxException(kind, "File '" + shown(name) + "': " + reason);
}

void requireName(const std::string& name) {
    bool isName = name.find('\0') == std::string::npos;
    for (std::size_t begin = 0; isName && begin <= name.size();) {
        const std::size_t end = std::min(name.find('/', begin), name.size());
        const std::string_view step = std::string_view(name).substr(begin, end - begin);
        isName = !step.empty() && step != "." && step != "..";
        begin = end + 1;
    }
    if (!isName)
        failStore(Kind::FileAccessException, name, "no name of a file in the store");
}

Descriptor openFolder(const std::string& folder) {
    Descriptor opened(open(folder.c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC));
    if (!opened || faccessat(opened.number(), ".", X_OK, 0) != 0)
        throw std::runtime_error(systemWords(errno));
    return opened;
}

Descriptor openBeneath(const Descriptor& folder, const std::string& name) {
    requireName(name);
    Descriptor reached;
    int from = folder.number();
    std::size_t begin = 0;
    for (std::size_t slash = name.find('/'); slash != std::string::npos; slash = name.find('/', begin)) {
        reached = openAt(from, name.substr(begin, slash - begin), openStep, name);
        from = reached.number();
        begin = slash + 1;
    }
    Descriptor file = openAt(from, name.substr(begin), openPlainFile, name);
    requirePlainFile(file, name);
    return file;
}

}  // namespace velkotx::host
