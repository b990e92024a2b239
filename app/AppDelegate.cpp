#include "AppDelegate.h"

#include "BkgndColorView.h"
#include "QApplication+QVExtras.h"
#include "QColor+QVExtras.h"
#include "QObject+QVExtras.h"
#include "Updater.h"
#include "UserDefaults.h"
#include "cxf_import.h"
#include "preferences.h"

#include <QAction>
#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QLoggingCategory>
#include <QMainWindow>
#include <QMenu>
#include <QMessageBox>
#include <QPalette>

#include <cmath>
#include <string>

Q_LOGGING_CATEGORY(lcImport, "cxf.import", QtInfoMsg)

namespace {

const QColor kMatchGreen = QColor::fromRgbF(0.0f, 0.8f, 0.0f);
const QColor kMismatchRed = QColor::fromRgbF(0.8f, 0.0f, 0.0f);
const QColor kHighlightPink = QColor::fromRgbF(1.0f, 0.7f, 0.7f);

// The platform's text background, for fields that carry no verdict.
QColor neutralBackground()
{
    return QApplication::palette().color(QPalette::Base);
}

void setBackground(QLineEdit *field, const QColor &color)
{
    if (!field)
        return;
    QPalette palette = field->palette();
    palette.setColor(QPalette::Base, color);
    // The theme's text where it reads well (4.5:1 at least), else black or white.
    palette.setColor(QPalette::Text,
                     readableTextColor(color, QApplication::palette().color(QPalette::Text)));
    field->setPalette(palette);
}

void setValue(QLineEdit *field, float value)
{
    if (field)
        field->setText(QString::number(double(value), 'f', AppDelegate::kResultDecimals));
}

// Which way the sample differs: in the caption under the field (with a visible marker for the
// largest term, which is otherwise told only by colour), its tooltip and accessible description.
void setDirection(QLineEdit *field, QLabel *caption, const QString &direction, bool largest)
{
    const QString marked =
        largest ? AppDelegate::tr("%1 \u2014 largest term").arg(direction) : direction;
    if (field) {
        field->setToolTip(AppDelegate::tr("%1\n\n%2").arg(marked, AppDelegate::highlightRule()));
        field->setAccessibleDescription(marked);
    }
    if (caption)
        caption->setText(marked);
}

// The comparison core's texts, so that translators see them; shown through translatedCoreText.
[[maybe_unused]] constexpr const char *kCoreTexts[] = {
    QT_TRANSLATE_NOOP("CxFImport", "Invalid XML data"),
    QT_TRANSLATE_NOOP("CxFImport", "No 'CxF' key in XML data"),
    QT_TRANSLATE_NOOP("CxFImport", "No 'Palette' key in XML data"),
    QT_TRANSLATE_NOOP("CxFImport", "No 'ColorSet' key in XML data"),
    QT_TRANSLATE_NOOP("CxFImport", "No 'Color' key in XML data"),
    QT_TRANSLATE_NOOP("CxFImport", "The specified Lab colors cannot be used for comparison."),
    QT_TRANSLATE_NOOP("CxFImport",
                      "The Lab colors were not specified with D50 illuminant and 2° observer."),
    QT_TRANSLATE_NOOP("CxFImport", "Ok"),
};

const QString kToleranceKeyPath = QLatin1String(kToleranceKey);

} // namespace

void AppDelegate::initialize()
{
    static bool initialized = false;
    if (initialized)
        return;
    initialized = true;
    UserDefaults::standardUserDefaults()->registerDefaults(prefDefaults());
}

const QVariantMap &AppDelegate::prefDefaults()
{
    static const QVariantMap defaults{{kToleranceKeyPath, QVariant(kDefaultTolerance)}};
    return defaults;
}

AppDelegate::AppDelegate(QObject *parent) : QObject(parent)
{
    initialize();
    _userDefaults = UserDefaults::standardUserDefaults();
}

AppDelegate::~AppDelegate()
{
    // Stop hearing about the preferences before anything else goes.
    unregisterObservedUserDefaults(this, prefDefaults());
    spectrum_1.reset();
    spectrum_2.reset();
    spectrum_3.reset();
    spectrum_4.reset();
    spectrum_5.reset();
}

void AppDelegate::applicationWillFinishLaunching()
{
    Updater *updater = Updater::sharedUpdater();
    QMenu *applicationMenu = ::applicationMenu(m_window);
    if (!applicationMenu)
        return;
    auto *item = new QAction(tr("Check for Updates\u2026"), applicationMenu);
    item->setObjectName(QStringLiteral("checkForUpdatesAction"));
    connect(item, &QAction::triggered, updater, &Updater::checkForUpdates);
    // Index 3 whatever the menu holds, after About, a separator and Preferences; a shorter
    // menu gets the item at its end.
    const QList<QAction *> items = applicationMenu->actions();
    applicationMenu->insertAction(items.size() > 3 ? items.at(3) : nullptr, item);
}

void AppDelegate::applicationDidFinishLaunching()
{
    registerObservedUserDefaults(this, prefDefaults());
}

void AppDelegate::observeValueForKeyPath(const QString &keyPath, QObject *, const KeyValueChange &,
                                         void *)
{
    // Re-colour only: the differences do not depend on the tolerance.
    if (keyPath == kToleranceKeyPath)
        updateUI();
}

void AppDelegate::parseXML(const QByteArray &text, BkgndColorView *sender)
{
    // A null text (the swatch could not read the file, or it was not UTF-8) is no XML at all.
    const CxFImportOutcome outcome =
        text.isNull() ? importUnreadableDocument({})
                      : importCxFDocument(std::string_view(text.constData(), size_t(text.size())));
    if (!outcome.logLine.empty())
        qCInfo(lcImport).noquote()
            << QString::fromUtf8(outcome.logLine.data(), qsizetype(outcome.logLine.size()));
    if (outcome.beep)
        QApplication::beep();
    if (!outcome.accepted())
        Q_EMIT documentRefused(translatedCoreText(refusalMessage(outcome)));
    if (outcome.alert)
        showAlert(*outcome.alert);
    if (!outcome.accepted())
        return; // the swatch and the samples stay as they were
    takeSample(outcome.lab, QString::fromStdString(outcome.caption), sender);
}

QString AppDelegate::highlightRule()
{
    return tr("The largest of the three CMC terms is highlighted: ΔL, ΔC and the CMC hue term ΔH. "
              "The Δh field shows the hue angle difference in degrees, but its highlight "
              "compares ΔH.");
}

QString AppDelegate::translatedCoreText(std::string_view text)
{
    return QCoreApplication::translate("CxFImport", std::string(text).c_str());
}

void AppDelegate::showAlert(const CxFAlert &alert)
{
    const auto text = translatedCoreText;
    QMessageBox box(QMessageBox::Warning, text(alert.title), text(alert.title),
                    QMessageBox::NoButton, m_window);
    box.setInformativeText(text(alert.message));
    box.addButton(text(alert.button), QMessageBox::AcceptRole);
    box.setWindowModality(Qt::ApplicationModal);
    if (m_alertPresenter)
        m_alertPresenter(box);
    else
        box.exec();
}

void AppDelegate::takeSample(LabColor lab, const QString &caption, BkgndColorView *sender)
{
    if (sender) {
        sender->setLabColor(lab);
        sender->setSwatchLabel(caption);
    }
    // Which sample follows from the sender's identity alone; another swatch sets none.
    storeSample(samples, sampleSlotForSender(sender, m_dragView1, m_dragView2), lab);
    if (sender)
        Q_EMIT sampleShown(sender);
    calcDeltaE();
}

void AppDelegate::calcDeltaE()
{
    if (!samples.bothDefined())
        return;
    // Sample 1 is the reference: CMC weights by it, so the order matters.
    const CmcDifferences d = computeCmcDifferences(samples.lab_1, samples.lab_2);
    delta_E = d.delta_E;
    delta_L = d.delta_L;
    delta_C = d.delta_C;
    delta_H = d.delta_H;
    delta_H_deg = d.delta_H_deg;
    updateUI();
}

void AppDelegate::updateUI()
{
    if (!samples.bothDefined())
        return;
    const float tolerance = _userDefaults->floatForKey(kToleranceKeyPath);

    setValue(m_delta_E_tf, delta_E);
    const Verdict verdict = verdictFor(delta_E, tolerance);
    switch (verdict) {
    case Verdict::Neutral:
        setBackground(m_delta_E_tf, neutralBackground());
        break;
    case Verdict::Match:
        setBackground(m_delta_E_tf, kMatchGreen);
        break;
    case Verdict::Mismatch:
        setBackground(m_delta_E_tf, kMismatchRed);
        break;
    }
    showVerdict(verdict, tolerance);

    setValue(m_delta_L_tf, delta_L);
    setValue(m_delta_C_tf, delta_C);
    setValue(m_delta_H_tf, delta_H_deg);
    const Highlight highlight = highlightFor(differences());
    setBackground(m_delta_L_tf, highlight.lightness ? kHighlightPink : neutralBackground());
    setBackground(m_delta_C_tf, highlight.chroma ? kHighlightPink : neutralBackground());
    setBackground(m_delta_H_tf, highlight.hue ? kHighlightPink : neutralBackground());
    showDirections(highlight);
}

void AppDelegate::showVerdict(Verdict verdict, float tolerance)
{
    if (!m_verdictLabel)
        return;
    const QString limit = QString::number(double(tolerance), 'g', 6);
    switch (verdict) {
    case Verdict::Neutral:
        m_verdictLabel->setText(tr("identical"));
        m_verdictLabel->setToolTip(tr("The two samples have the same colour."));
        break;
    case Verdict::Match:
        m_verdictLabel->setText(tr("match"));
        m_verdictLabel->setToolTip(tr("Within the tolerance of %1.").arg(limit));
        break;
    case Verdict::Mismatch:
        m_verdictLabel->setText(tr("mismatch"));
        m_verdictLabel->setToolTip(tr("Beyond the tolerance of %1.").arg(limit));
        break;
    }
    const QString said = tr("%1: %2").arg(m_verdictLabel->text(), m_verdictLabel->toolTip());
    m_verdictLabel->setAccessibleDescription(said);
    if (m_delta_E_tf) {
        m_delta_E_tf->setAccessibleDescription(said);
        m_delta_E_tf->setToolTip(said);
    }
}

void AppDelegate::showDirections(const Highlight &highlight)
{
    setDirection(m_delta_L_tf, m_delta_L_caption,
                 delta_L > 0   ? tr("lighter")
                 : delta_L < 0 ? tr("darker")
                               : tr("same lightness"),
                 highlight.lightness);
    setDirection(m_delta_C_tf, m_delta_C_caption,
                 delta_C > 0   ? tr("more saturated")
                 : delta_C < 0 ? tr("less saturated")
                               : tr("same saturation"),
                 highlight.chroma);
    QString hue;
    switch (hueTurnFor(samples.lab_1, delta_H_deg)) {
    case HueTurn::None:
        hue = tr("same hue angle");
        break;
    case HueTurn::Redder:
        hue = tr("redder");
        break;
    case HueTurn::Yellower:
        hue = tr("yellower");
        break;
    case HueTurn::Greener:
        hue = tr("greener");
        break;
    case HueTurn::Bluer:
        hue = tr("bluer");
        break;
    }
    setDirection(m_delta_H_tf, m_delta_H_caption, hue, highlight.hue);
}
