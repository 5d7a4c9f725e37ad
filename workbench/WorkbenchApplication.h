#pragma once

#include <QApplication>
#include <QPointer>

class QMessageBox;

/// The application object of the host. What a slot throws ends here: it is logged and shown, and the
/// program goes on.
class WorkbenchApplication : public QApplication
{
    Q_OBJECT

public:
    WorkbenchApplication(int& argc, char** argv);

    bool notify(QObject* receiver, QEvent* event) override;

    /// Whether windows are seen; they are not where only pictures are made of them.
    static bool isOnScreen();

    /// Why a window does not read a file that may keep it waiting, as a pipe does; empty for other files.
    static QString refusal(const QString& file);

    /// Asks where to save; the suffix of the proposed name is added to a name without one. Empty when the
    /// user cancels.
    static QString fileToSave(QWidget* parent, const QString& title, const QString& name,
                              const QString& filter);

    /// Reports why the program can't go on: in a box, or on standard error where windows are not seen.
    static void tellError(const QString& text);

private:
    void showException(const QString& text);

    // One box for all failures, which may come with every event.
    QPointer<QMessageBox> m_box;
};
