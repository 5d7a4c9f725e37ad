#include "StyleSheet.h"

#include <QFile>
#include <QImage>
#include <QResource>
#include <QtTest>

/// The bundles that are compiled into the plug-in.
class tst_resources : public QObject
{
    Q_OBJECT

private slots:
    void sheets();
    void images();
};

void tst_resources::sheets()
{
    for (const QString path : {":/qss_im/HorizontalControlIM.qss", ":/qss_im/QIfModuleMainView.qss"}) {
        QCOMPARE(QResource(path).compressionAlgorithm(), QResource::ZlibCompression);
        QFile file(path);
        QVERIFY(file.open(QIODevice::ReadOnly));
        const QByteArray bytes = file.readAll();
        QCOMPARE(bytes.count("\r\n"), bytes.count('\n'));
        QVERIFY(bytes.count('\n') > 10);

        const QString sheet = StyleSheet::read(path).value_or(QString());
        QCOMPARE(sheet.size(), bytes.size());
        // Every image that a rule names is in the bundle.
        auto matches = QRegularExpression("url\\((.+?)\\)").globalMatch(sheet);
        QVERIFY(matches.hasNext());
        while (matches.hasNext()) {
            const QString image = matches.next().captured(1);
            QVERIFY2(QFile::exists(image), qPrintable(image));
        }
    }
    QVERIFY(!StyleSheet::read(":/qss_im/none.qss"));
}

void tst_resources::images()
{
    const std::pair<QSize, QStringList> images[] = {
        {{20, 20}, {"ic_add_normal", "ic_add_highlight"}},
        {{24, 24}, {"ic_dark_delete_normal", "ic_dark_delete_click", "img_none", "msg_close_normal"}},
        {{16, 16}, {"combo_ic_triangle_normal", "combo_ic_triangle_click"}},
        {{20, 16},
         {"combo_ic_top_normal", "combo_ic_top_click", "combo_ic_down_normal", "combo_ic_down_click"}},
        {{26, 26},
         {"ic_btn_linkswitch_normal", "ic_btn_linkswitch_click", "ic_btn_editswitch_normal",
          "ic_btn_editswitch_click"}},
        {{32, 32}, {"ic_link_gray_normal", "ic_link_gray_click"}}};
    for (const auto& [size, names] : images) {
        for (const QString& name : names) {
            const QString path = ":/img_im/ImageResource/" + name + ".png";
            const QImage image(path);
            QVERIFY2(image.size() == size && image.hasAlphaChannel() && image.depth() == 32,
                     qPrintable(name));
            QCOMPARE(QResource(path).compressionAlgorithm(), QResource::NoCompression);
        }
    }
}

QTEST_APPLESS_MAIN(tst_resources)
#include "tst_resources.moc"
