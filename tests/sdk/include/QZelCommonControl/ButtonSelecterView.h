#pragma once

#include "core_client/core_client.h"

#include <QJsonArray>
#include <QWidget>

/// The least that is a selector; one more virtual function and no members in common with any other.
class Q_DECL_EXPORT ButtonSelecterView : public QWidget
{
    Q_OBJECT

public:
    ButtonSelecterView();

    virtual int SetFilterSourceOperation4IO(int moduleId, ENUM_IO_SUBSCRIBE_TYPE_ type, QString key,
                                            QString info);
    virtual int GetFilterSourceOperation4IO(int moduleId, ENUM_IO_SUBSCRIBE_TYPE_ type, QString key,
                                            QString& info);
    virtual int DelFilterSourceOperation4IO(int moduleId, ENUM_IO_SUBSCRIBE_TYPE_ type, QString key);
    void UpdateSubscribeMenuData(QJsonArray& menu, int index);
    void SetFixedSize(int width, int height);
    void SetEdiSubscribeText(QString text);
    void SetHide();

signals:
    void sigQuerySubscribeMenuInfo(QString varType);
    void sigEdiSubscribeInfoChanged(QString info);

private:
    double m_unlikeOthers[16] = {};
    QString m_info;
};
