#include "StoreFile.h"

#include "FileName.h"
#include "TextError.h"

#include <cerrno>
#include <cstdlib>
#include <memory>
#include <set>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

// Files that this process edits. No other descriptor may be opened on them, not even in passing.
std::set<std::pair<dev_t, ino_t>>& editedFiles()
{
    static std::set<std::pair<dev_t, ino_t>> files;
    return files;
}

} // namespace

StoreFile::StoreFile(const QString& name, Use use)
    : m_name(name)
    , m_givenPath(FileName::encoded(name))
    , m_use(use)
{
    require(!name.isEmpty() && name != QLatin1String(":memory:") && !name.startsWith(QLatin1String("file:")),
            tr("a store must be the path to a file, not \"%1\"").arg(name));
    struct stat status = {};
    const bool exists = ::stat(m_givenPath.constData(), &status) == 0;
    const bool isMissing = !exists && errno == ENOENT;
    require(!isMissing || use == Edit, tr("no such store: %1").arg(name));
    require(!exists || S_ISREG(status.st_mode), tr("the store %1 is not a file").arg(name));
    const bool isEditedHere = exists && editedFiles().count({status.st_dev, status.st_ino}) != 0;
    if (!isEditedHere) {
        const int flags = use == Edit ? O_RDWR | O_CREAT : O_RDONLY;
        const int descriptor = ::open(m_givenPath.constData(), flags | O_CLOEXEC, 0666);
        require(descriptor >= 0, tr("the store %1 can't be opened: %2").arg(name, qt_error_string()));
        m_file.open(descriptor, QIODevice::ReadOnly, QFile::AutoCloseHandle);
        ::fstat(descriptor, &status);
    }
    m_identity = {status.st_dev, status.st_ino};
    const std::unique_ptr<char, decltype(&std::free)> real(::realpath(m_givenPath.constData(), nullptr),
                                                           &std::free);
    require(real != nullptr, tr("the store %1 can't be opened: %2").arg(name, qt_error_string()));
    m_path = real.get();
    if (use == Edit) {
        // The panel writes its whole list at each edit: two programs on one store would undo each other.
        require(!isEditedHere && lock(F_WRLCK), tr("the store %1 is in use by another program").arg(name));
        const bool isWritable = ::eaccess(m_path.left(m_path.lastIndexOf('/') + 1).constData(), W_OK) == 0;
        require(isWritable,
                tr("the folder of the store %1 can't be written: %2").arg(name, qt_error_string()));
    }

    // Byte 18 of the header says whether there is a log; a store that was closed has none.
    struct stat log = {};
    char version = 0;
    const bool lacksLog =
        (isEditedHere || (::pread(m_file.handle(), &version, 1, 18) == 1 && version == 2)) &&
        (::stat((m_path + "-wal").constData(), &log) != 0 || log.st_size == 0);
    require(!lacksLog || status.st_nlink == 1,
            tr("the store %1 has another name, a hard link, under which it is in use or was not closed")
                .arg(name));
    // SQLite would make a log in order to read; it need not while nobody edits.
    const bool isFixed = lacksLog && use == Read && lock(F_RDLCK);
    m_parameters = use == Edit ? "?mode=rw" : isFixed ? "?mode=ro&immutable=1" : "?mode=ro";
    if (use == Edit) {
        editedFiles().insert(*m_identity);
    }
}

StoreFile::~StoreFile()
{
    if (m_use == Edit) {
        editedFiles().erase(*m_identity);
    }
}

bool StoreFile::isInPlace() const
{
    return identityOf(m_givenPath) == m_identity && identityOf(m_path + "-wal") == m_log;
}

std::optional<StoreFile::Identity> StoreFile::identityOf(const QByteArray& path)
{
    struct stat status = {};
    return ::stat(path.constData(), &status) == 0 ? std::optional(Identity(status.st_dev, status.st_ino))
                                                  : std::nullopt;
}

// The lock is the descriptor's, not the process's, and on a byte before those that SQLite locks.
bool StoreFile::lock(short type) const
{
    struct flock range = {};
    range.l_type = type;
    range.l_start = 0x3fffffff;
    range.l_len = 1;
    return ::fcntl(m_file.handle(), F_OFD_SETLK, &range) == 0;
}
