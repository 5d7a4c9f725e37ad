#pragma once

#include <QByteArray>
#include <QStringList>
#include <QVector>

/// What a panel must show and store, kept beside it by a test: a second, plain telling of its rules.
struct ConditionModel
{
    struct Bound
    {
        double value = 0.0;
        /// Comes back when an edit leaves the lower bound above the upper one.
        double accepted = 0.0;
        bool isSubscribed = false;
    };
    struct Row
    {
        QString name;
        QString note;
        Bound lower = {1.0, 0.0};
        Bound upper = {1000.0, 0.0};

        bool hasStrip() const { return name.contains("int") || name.contains("float"); }
    };

    /// The list as it is stored.
    QByteArray text() const;
    /// Takes the rows of a stored list, all bounds constant.
    void load(const QByteArray& stored);
    void add(const QString& type);
    /// As the panel does for a name, of which there may be several after hostile notes.
    void remove(const QString& name);
    /// A finished edit of a row's bounds.
    void finishBounds(Row& row);
    QStringList names() const;

    QVector<Row> rows;
};
