#include "PreferencesDialog.h"

#include "UserDefaults.h"
#include "preferences.h"

#include <QDialogButtonBox>
#include <QDir>
#include <QDoubleValidator>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QVBoxLayout>

#include <charconv>
#include <cmath>
#include <limits>

namespace {
const QString kToleranceKeyPath = QLatin1String(kToleranceKey);
}

PreferencesDialog::PreferencesDialog(UserDefaults *defaults, QWidget *parent)
    : QDialog(parent), m_defaults(defaults), m_tolerance(new QLineEdit(this)),
      m_problem(new QLabel(this))
{
    setWindowTitle(tr("Preferences"));
    m_tolerance->setObjectName(QStringLiteral("toleranceField"));
    // Only non-negative decimals can be typed (no exponent, so nothing beyond the float range
    // short of 39 digits; commitTolerance checks the rest).
    auto *validator = new QDoubleValidator(0.0, std::numeric_limits<float>::max(), 1000, this);
    validator->setNotation(QDoubleValidator::StandardNotation);
    m_tolerance->setValidator(validator);
    m_tolerance->setAccessibleName(tr("Delta E tolerance"));
    showStoredTolerance();

    auto *form = new QFormLayout;
    form->addRow(tr("&Tolerance (ΔE CMC 2:1):"), m_tolerance);
    auto *hint = new QLabel(tr("Differences up to the tolerance show as a match (green), larger "
                               "ones as a mismatch (red)."));
    hint->setWordWrap(true);
    m_problem->setObjectName(QStringLiteral("settingsProblem"));
    m_problem->setWordWrap(true);
    m_problem->setStyleSheet(QStringLiteral("color: #c00000"));
    m_problem->hide();
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Close);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    // Return in the field stores the tolerance; it does not close the dialog.
    buttons->button(QDialogButtonBox::Close)->setAutoDefault(false);

    auto *layout = new QVBoxLayout(this);
    layout->addLayout(form);
    layout->addWidget(hint);
    layout->addWidget(m_problem);
    layout->addWidget(buttons);

    connect(m_tolerance, &QLineEdit::editingFinished, this, &PreferencesDialog::commitTolerance);
    m_defaults->addObserver(this, kToleranceKeyPath, KeyValueObservingOption::New, nullptr);
}

PreferencesDialog::~PreferencesDialog()
{
    m_defaults->removeObserver(this, kToleranceKeyPath);
}

PreferencesDialog *PreferencesDialog::showShared(QWidget *parent)
{
    static QPointer<PreferencesDialog> shared;
    if (!shared) {
        shared = new PreferencesDialog(UserDefaults::standardUserDefaults(), parent);
        shared->setAttribute(Qt::WA_DeleteOnClose);
    }
    shared->show();
    shared->raise();
    shared->activateWindow();
    return shared;
}

void PreferencesDialog::commitTolerance()
{
    if (!m_tolerance->isModified())
        return; // nothing typed since the stored value was shown
    bool ok = false;
    const float value = m_tolerance->locale().toFloat(m_tolerance->text(), &ok);
    if (!m_tolerance->hasAcceptableInput() || !ok || !std::isfinite(value) || value < 0) {
        showStoredTolerance(); // nothing stored: the field goes back to what is
        return;
    }
    m_tolerance->setModified(false);
    m_defaults->setFloat(value, kToleranceKeyPath);
    const bool failed = m_defaults->status() != QSettings::NoError;
    m_problem->setText(
        tr("The tolerance could not be saved: %1 cannot be written. It applies until CxF "
           "Compare quits.")
            .arg(QDir::toNativeSeparators(m_defaults->settingsFile())));
    m_problem->setVisible(failed);
}

void PreferencesDialog::showStoredTolerance()
{
    // The stored float as it is: the shortest text that reads back as it, "nan" included.
    char text[32];
    const float value = m_defaults->floatForKey(kToleranceKeyPath);
    const auto result = std::to_chars(text, text + sizeof text, value);
    QString shown = QString::fromLatin1(text, int(result.ptr - text));
    m_tolerance->setText(shown.replace(QLatin1Char('.'), m_tolerance->locale().decimalPoint()));
}

void PreferencesDialog::observeValueForKeyPath(const QString &keyPath, QObject *,
                                               const KeyValueChange &, void *)
{
    // Another writer changed the tolerance: show it, unless the user is typing a new one.
    if (keyPath == kToleranceKeyPath && !m_tolerance->isModified())
        showStoredTolerance();
}
