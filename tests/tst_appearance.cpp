#include "PanelTour.h"

#include <QLabel>
#include <QLocale>

/// Nothing is cut off or covered, whatever the host's language, fonts and scale are. Run once for each scale
/// factor, which a process can't change.
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
    for (const char* const locale : {"C", "de_DE", "ar_EG", "zh_CN"}) {
        for (const char* const font : {"DejaVu Sans", "WenQuanYi Micro Hei"}) {
            QTest::addRow("%s, %s", locale, font) << locale << font;
        }
    }
}

void tst_appearance::nothingIsClipped()
{
    QFETCH(QString, locale);
    QFETCH(QString, font);
    QLocale::setDefault(QLocale(locale));
    QApplication::setLayoutDirection(QLocale().textDirection());
    QApplication::setFont(QFont(font));

    PanelTour tour;
    tour.core.uiData["@%int1%End"] = "True";
    tour.core.bindings["0/%int1%End"] = "5.Mean";
    tour.core.bindings["1/%int1%"] = "5.Count";
    const QByteArray list =
        "%int0%:-99999:12345678:;%float31%:-100000.000:100000.000:孔径;%int1%:0:1000:note;";
    tour.show(list);
    QTRY_VERIFY(tour.at<QLineEdit>("m_ediNote")->isVisible());
    QCOMPARE(tour.shown(), list);

    const auto verifyRoom = [](const QWidget* widget, const QString& text, int room) {
        const int width = widget->fontMetrics().horizontalAdvance(text);
        QVERIFY2(width <= room, qPrintable(QString("%1: %2 of %3").arg(text).arg(width).arg(room)));
    };
    for (const QLabel* const label : tour.panel->findChildren<QLabel*>()) {
        QVERIFY2(label->isHidden() || label->width() >= label->sizeHint().width(), qPrintable(label->text()));
    }
    for (const QString side : {"Min", "Max"}) {
        for (const auto* const spinBox : tour.all<QDoubleSpinBox>(qPrintable("m_spb" + side + "PullBar"))) {
            // What QLineEdit leaves for a text.
            const auto* const field = spinBox->findChild<QLineEdit*>();
            const QMargins margins = field->textMargins();
            verifyRoom(field, spinBox->isHidden() ? "" : field->text(),
                       field->contentsRect().width() - margins.left() - margins.right() - 4);
        }
    }
    for (const auto* const combo : tour.panel->findChildren<QComboBox*>()) {
        verifyRoom(combo, combo->currentText(), combo->width() - 20);
    }

    // In a row no widget covers another, and none leaves the list.
    QRegion covered;
    for (const char* const name :
         {"m_labName", "m_ediNote", "m_spbMinPullBar", "m_btnMinSwitch", "m_btnMaxSwitch", "m_btnDelete"}) {
        for (const QWidget* const widget : tour.all<QWidget>(name)) {
            const QRect place(widget->mapTo(tour.panel, QPoint()), widget->size());
            QVERIFY2(tour.panel->rect().contains(place) && !covered.intersects(place), name);
            covered += place;
        }
    }
}

QTEST_MAIN(tst_appearance)
#include "tst_appearance.moc"
