#include "PanelTour.h"

#include <QLabel>

/// No text is cut off and nothing is covered, whatever the host's language, fonts and scale are. Run once for
/// each scale factor, which a process can't change.
class tst_appearance : public QObject
{
    Q_OBJECT

private slots:
    void nothingIsClipped_data();
    void nothingIsClipped();
};

void tst_appearance::nothingIsClipped_data()
{
    QTest::addColumn<QString>("locale");
    QTest::addColumn<QString>("font");
    QTest::newRow("German") << "de_DE"
                            << "DejaVu Sans";
    QTest::newRow("Arabic") << "ar_EG"
                            << "DejaVu Sans";
    QTest::newRow("Chinese") << "zh_CN"
                             << "WenQuanYi Micro Hei";
}

void tst_appearance::nothingIsClipped()
{
    QFETCH(QString, locale);
    QFETCH(QString, font);
    QLocale::setDefault(QLocale(locale));
    QApplication::setLayoutDirection(QLocale().textDirection());
    QApplication::setFont(QFont(font));

    // The longest names, and bounds of all lengths; what is longer than these is elided.
    PanelTour tour;
    QString list;
    for (int digits = 1; digits < 8; ++digits) {
        const QString number(digits, '8');
        list += QString("%int%1%:-%2:%2:;").arg(22 + digits).arg(number);
        list += digits < 6 ? QString("%float%1%:-%2.888:%2.888:;").arg(22 + digits).arg(number) : QString();
    }
    tour.core.binaryData["IFText"] = list.toUtf8();
    tour.perform("show");
    QCOMPARE(tour.shown(), list.toUtf8());

    const auto labels = tour.panel->findChildren<QLabel*>();
    for (const QLabel* const label : labels) {
        QVERIFY2(label->isHidden() || label->width() >= label->sizeHint().width(), qPrintable(label->text()));
    }
    for (const QLineEdit* const edit : tour.all<QLineEdit>("qt_spinbox_lineedit")) {
        // What QLineEdit leaves for a text.
        const int room =
            edit->contentsRect().width() - edit->textMargins().left() - edit->textMargins().right() - 4;
        QVERIFY2(edit->fontMetrics().horizontalAdvance(edit->text()) <= room, qPrintable(edit->text()));
    }
    for (const QComboBox* const combo : tour.panel->findChildren<QComboBox*>()) {
        const int width = combo->fontMetrics().horizontalAdvance(combo->currentText());
        QVERIFY2(width <= combo->width() - 20, qPrintable(combo->currentText()));
    }
    QRegion covered;
    for (const char* const name : {"m_labName", "m_ediNote", "m_spbMinPullBar", "m_btnMinSwitch",
                                   "m_spbMaxPullBar", "m_btnMaxSwitch", "m_btnDelete"}) {
        for (const QWidget* const widget : tour.all<QWidget>(name)) {
            const QRect place(widget->mapTo(tour.find("widget_2"), QPoint()), widget->size());
            QVERIFY2(tour.find("widget_2")->rect().contains(place) && !covered.intersects(place), name);
            covered += place;
        }
    }
}

QTEST_MAIN(tst_appearance)
#include "tst_appearance.moc"
