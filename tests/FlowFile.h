#pragma once

#include "EmbeddedCore/Flow.h"

#include <QTemporaryFile>

/// The flow in a file with these bytes; in an error the file's name reads FILE.
inline std::optional<Flow> flowOf(const QByteArray& json, QString* error = nullptr)
{
    QString ownError;
    QTemporaryFile file;
    if (!file.open() || file.write(json) != json.size() || !file.flush()) {
        qFatal("no temporary file");
    }
    auto flow = Flow::load(file.fileName(), error ? error : &ownError);
    if (error) {
        error->replace(file.fileName(), QLatin1String("FILE"));
    }
    return flow;
}
