#include "StoreFile.h"

#include "CoreError.h"
#include "FileName.h"

#include <cerrno>
#include <cstdlib>
#include <memory>
#include <set>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

// Files that this process edits. Not even a descriptor may be opened on them in passing.
std::set<std::pair<dev_t, ino_t>>& editedFiles()
{
    static std::set<std::pair<dev_t, ino_t>> files;
    return files;
}

} // namespace

StoreFile::StoreFile(const QString& name, Use use, Delegated)
    : m_name(name)
    , m_use(use)
{}

// Delegates, so that the destructor closes the file when the rest fails.
StoreFile::StoreFile(const QString& name, Use use)
    : StoreFile(name, use, Delegated())
{
    if (name.isEmpty() || name == QLatin1String(":memory:") || name.startsWith(QLatin1String("file:"))) {
        throw CoreError(tr("a store must be the path to a file, not \"%1\"").arg(name));
    }
    const QByteArray path = FileName::encoded(name);
    struct stat status = {};
    const bool exists = ::stat(path.constData(), &status) == 0;
    if (!exists && use == Read && errno == ENOENT) {
        throw CoreError(tr("no such store: %1").arg(name));
    }
    if (exists && !S_ISREG(status.st_mode)) {
        throw CoreError(tr("the store %1 is not a file").arg(name));
    }
    const bool isEditedHere = exists && editedFiles().count({status.st_dev, status.st_ino}) != 0;
    if (!isEditedHere) {
        m_descriptor =
            ::open(path.constData(), (use == Edit ? O_RDWR | O_CREAT : O_RDONLY) | O_CLOEXEC, 0666);
        if (m_descriptor < 0 || ::fstat(m_descriptor, &status) != 0) {
            throw CoreError(tr("the store %1 can't be opened: %2").arg(name, qt_error_string()));
        }
    }
    m_identity = {status.st_dev, status.st_ino};
    // The panel writes its whole list at each edit: two programs on one store would undo each other.
    if (use == Edit && (isEditedHere || !lock(F_WRLCK))) {
        throw CoreError(tr("the store %1 is in use by another program").arg(name));
    }
    m_isHeld = use == Edit && editedFiles().insert(*m_identity).second;
    const std::unique_ptr<char, decltype(&std::free)> real(::realpath(path.constData(), nullptr), &std::free);
    m_path = real.get();
    const QByteArray folder = m_path.left(m_path.lastIndexOf('/') + 1);
    if (use == Edit && ::eaccess(folder.constData(), W_OK) != 0) {
        throw CoreError(tr("the folder of the store %1 can't be written: %2").arg(name, qt_error_string()));
    }

    // Byte 18 of the header says whether there is a log; a store that was closed has none.
    struct stat log = {};
    char version = 0;
    const bool lacksLog = (isEditedHere || (::pread(m_descriptor, &version, 1, 18) == 1 && version == 2)) &&
                          (::stat((m_path + "-wal").constData(), &log) != 0 || log.st_size == 0);
    if (lacksLog && status.st_nlink > 1) {
        throw CoreError(
            tr("the store %1 has another name, a hard link, under which it is in use or was not closed")
                .arg(name));
    }
    // SQLite would make a log in order to read; it need not while nobody edits.
    const bool isFixed = lacksLog && use == Read && lock(F_RDLCK);
    m_parameters = use == Edit ? "?mode=rw" : isFixed ? "?mode=ro&immutable=1" : "?mode=ro";
}

StoreFile::~StoreFile()
{
    if (m_descriptor >= 0) {
        ::close(m_descriptor);
    }
    if (m_isHeld) {
        editedFiles().erase(*m_identity);
    }
}

QString StoreFile::url() const
{
    return QString::fromLatin1("file:" + m_path.toPercentEncoding("/") + m_parameters);
}

bool StoreFile::isInPlace() const
{
    return identityOf(FileName::encoded(m_name)) == m_identity && identityOf(m_path + "-wal") == m_log;
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
    range.l_whence = SEEK_SET;
    range.l_start = 0x3fffffff;
    range.l_len = 1;
    return ::fcntl(m_descriptor, F_OFD_SETLK, &range) == 0;
}
