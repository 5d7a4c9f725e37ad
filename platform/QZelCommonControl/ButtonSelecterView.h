#pragma once

#include "core_client/core_client.h"

#include <QJsonArray>
#include <QWidget>

class QToolButton;
class SubscribeField;
class SubscribeMenuPopup;

/// Chooses the value of an earlier module that feeds an IO or a run parameter: a field with the chosen
/// value's subscribe text and a button that opens the menu of values.
///
/// Its owner supplies the menu when asked, and binds what was chosen through the operations below, which go
/// to the core as commands; ZelException of the core client leaves them. GUI thread only.
class Q_DECL_EXPORT ButtonSelecterView : public QWidget
{
    Q_OBJECT

public:
    explicit ButtonSelecterView(QWidget* parent = nullptr);

    /// Binds the key to the value with this subscribe text, or removes the binding for an empty one.
    /// 0, or -1 when the core refuses.
    int SetFilterSourceOperation4IO(int moduleId, ENUM_IO_SUBSCRIBE_TYPE_ type, QString key, QString info);
    /// Reads the key's binding into info. 0, or -1 when there is none or the core fails; the field is empty
    /// then. A binding whose source is gone counts, and is marked when its text is shown.
    int GetFilterSourceOperation4IO(int moduleId, ENUM_IO_SUBSCRIBE_TYPE_ type, QString key, QString& info);
    /// Removes the key's binding; an IO's key may end in ":input" or ":output". 0, or -1 when there is none.
    /// The field is empty afterwards unless the core failed.
    int DelFilterSourceOperation4IO(int moduleId, ENUM_IO_SUBSCRIBE_TYPE_ type, QString key);

    /// The menu, in answer to sigQuerySubscribeMenuInfo(): an array of objects with "label", "isTitle" and
    /// "level", and either "subnodes" or "subscribeName". The number has no meaning here.
    void UpdateSubscribeMenuData(QJsonArray& menu, int index);

    /// In pixels; the button takes 25 of the width, the field has the rest.
    void SetFixedSize(int width, int height)
    {
        setFixedSize(width, height);
        placeParts(width, height);
    }
    void SetEdiSubscribeText(QString text);
    /// Closes the open menu.
    void SetHide();

signals:
    /// The menu is about to open. The text is a value type to offer when the owner knows none: empty.
    void sigQuerySubscribeMenuInfo(QString varType);
    /// The user chose a value, by its subscribe text; empty for "not bound".
    void sigEdiSubscribeInfoChanged(QString info);

protected:
    void changeEvent(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void placeParts(int width, int height);
    void retranslate();
    void openMenu();
    void choose(const QString& info);

    SubscribeField* m_ediField;
    QToolButton* m_btnOpen;
    // Made when the menu is first opened.
    SubscribeMenuPopup* m_popup = nullptr;
    QJsonArray m_menu;
    // The text of a binding whose source is gone; null when there is none such.
    QString m_missing;
    bool m_isUnread = false;
};
