#pragma once

#include <QByteArray>
#include <QCoreApplication>
#include <QFile>
#include <QString>

#include <optional>
#include <utility>

#include <sys/types.h>

/// The file of a store as the system knows it: by device and inode, whatever path leads to it. One object of
/// all programs holds it for editing at a time; a process that is killed releases it. Must outlive every
/// SQLite connection to the file: closing a descriptor drops the locks that SQLite holds in this process.
class StoreFile
{
    Q_DECLARE_TR_FUNCTIONS(StoreFile)

public:
    enum Use { Read, Edit };

    /// Creates the file for editing when there is none. Throws TextError when the name is not the path to a
    /// file, when there is nothing to read and when the file is held for editing already.
    StoreFile(const QString& name, Use use);
    ~StoreFile();
    Q_DISABLE_COPY(StoreFile)

    QString name() const { return m_name; }
    Use use() const { return m_use; }
    /// What SQLite is to open.
    QString url() const
    {
        return QString::fromLatin1("file:" + m_path.toPercentEncoding("/") + m_parameters);
    }

    /// To be called once the write-ahead log exists.
    void noteLog() { m_log = identityOf(m_path + "-wal"); }
    /// False when the file or its log was deleted, moved or replaced: what is written then is lost.
    bool isInPlace() const;

private:
    using Identity = std::pair<dev_t, ino_t>;

    static std::optional<Identity> identityOf(const QByteArray& path);
    bool lock(short type) const;

    QString m_name;
    QByteArray m_givenPath; // as the name has it
    Use m_use;
    QByteArray m_path; // without links
    QByteArray m_parameters;
    QFile m_file;
    std::optional<Identity> m_identity;
    std::optional<Identity> m_log;
};
