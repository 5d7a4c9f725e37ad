#include "WorkbenchApplication.h"

#include <QFileDialog>
#include <QFileInfo>
#include <QMessageBox>
#include <QStyle>

#include <cstdio>
#include <exception>

WorkbenchApplication::WorkbenchApplication(int& argc, char** argv)
    : QApplication(argc, argv)
{
    // Panels are drawn for white paper, and what their style sheets leave open comes from here: a dark
    // desktop must not make them unreadable.
    setStyle(QStringLiteral("Fusion"));
    QPalette paper = style()->standardPalette();
    paper.setColor(QPalette::Window, Qt::white);
    setPalette(paper);
}

bool WorkbenchApplication::notify(QObject* receiver, QEvent* event)
{
    try {
        return QApplication::notify(receiver, event);
    } catch (const std::exception& exception) {
        showException(QString::fromUtf8(exception.what()));
    }
    return false;
}

void WorkbenchApplication::showException(const QString& text)
{
    qWarning("a slot threw: %s", qUtf8Printable(text));
    if (!m_box) {
        m_box = new QMessageBox(QMessageBox::Critical, applicationDisplayName(), QString(), QMessageBox::Ok,
                                activeWindow());
        m_box->setAttribute(Qt::WA_DeleteOnClose);
        m_box->setModal(false);
    }
    m_box->setText(tr("The core or a panel failed; the last action may be incomplete.\n\n%1").arg(text));
    m_box->show();
}

bool WorkbenchApplication::isOnScreen()
{
    return platformName() != QLatin1String("offscreen") && platformName() != QLatin1String("minimal");
}

QString WorkbenchApplication::refusal(const QString& file)
{
    const QFileInfo info(file);
    return info.exists() && !info.isFile() ? tr("%1 is not a regular file.").arg(file) : QString();
}

QString WorkbenchApplication::fileToSave(QWidget* parent, const QString& title, const QString& name,
                                         const QString& filter)
{
    QFileDialog dialog(parent, title, QString(), filter);
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setDefaultSuffix(QFileInfo(name).suffix());
    dialog.selectFile(name);
    return dialog.exec() == QDialog::Accepted ? dialog.selectedFiles().value(0) : QString();
}

void WorkbenchApplication::tellError(const QString& text)
{
    std::fprintf(stderr, "%s: %s\n", qUtf8Printable(applicationName()), qUtf8Printable(text));
    if (isOnScreen()) {
        QMessageBox::critical(nullptr, applicationDisplayName(), text);
    }
}
