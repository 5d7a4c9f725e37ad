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
    void sheets_data();
    void sheets();
    void missingSheet();
    void images_data();
    void images();
};

void tst_resources::sheets_data()
{
    QTest::addColumn<QString>("path");
    QTest::newRow("row") << ":/qss_im/HorizontalControlIM.qss";
    QTest::newRow("panel") << ":/qss_im/QIfModuleMainView.qss";
}

void tst_resources::sheets()
{
    QFETCH(QString, path);
    QCOMPARE(QResource(path).compressionAlgorithm(), QResource::ZlibCompression);
    QFile file(path);
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QByteArray bytes = file.readAll();
    QCOMPARE(bytes.count("\r\n"), bytes.count('\n'));
    QVERIFY(bytes.count('\n') > 10);

    const QString sheet = StyleSheet::read(path).value_or(QString());
    QCOMPARE(sheet.size(), bytes.size());
    // Every image that a rule names is in the bundle.
    const QRegularExpression url(QStringLiteral("url\\((.+?)\\)"));
    auto matches = url.globalMatch(sheet);
    QVERIFY(matches.hasNext());
    while (matches.hasNext()) {
        const QString image = matches.next().captured(1);
        QVERIFY2(QFile::exists(image), qPrintable(image));
    }
}

void tst_resources::missingSheet()
{
    QVERIFY(!StyleSheet::read(QStringLiteral(":/qss_im/none.qss")));
}

void tst_resources::images_data()
{
    QTest::addColumn<QSize>("size");
    const auto add = [](const QSize& size, std::initializer_list<const char*> names) {
        for (const char* const name : names) {
            QTest::newRow(name) << size;
        }
    };
    add({20, 20}, {"ic_add_normal", "ic_add_highlight"});
    add({24, 24}, {"ic_dark_delete_normal", "ic_dark_delete_click", "img_none", "msg_close_normal"});
    add({16, 16}, {"combo_ic_triangle_normal", "combo_ic_triangle_click"});
    add({20, 16},
        {"combo_ic_top_normal", "combo_ic_top_click", "combo_ic_down_normal", "combo_ic_down_click"});
    add({26, 26}, {"ic_btn_linkswitch_normal", "ic_btn_linkswitch_click", "ic_btn_editswitch_normal",
                   "ic_btn_editswitch_click"});
    add({32, 32}, {"ic_link_gray_normal", "ic_link_gray_click"});
}

void tst_resources::images()
{
    const QString path =
        QStringLiteral(":/img_im/ImageResource/%1.png").arg(QString::fromLatin1(QTest::currentDataTag()));
    const QImage image(path);
    QTEST(image.size(), "size");
    QVERIFY(image.hasAlphaChannel());
    QCOMPARE(image.depth(), 32);
    QCOMPARE(QResource(path).compressionAlgorithm(), QResource::NoCompression);
}

QTEST_APPLESS_MAIN(tst_resources)
#include "tst_resources.moc"
