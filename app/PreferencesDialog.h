#pragma once
// Preferences: the delta E tolerance. The field shows the stored value as it is; what is
// typed is written to the user defaults when editing finishes (Return, or the field losing
// focus, as it does when the dialog closes), and only when it is a finite, non-negative
// number. The open main window re-colours through its observation of the defaults; a
// settings file that cannot be written is said.

#include "KeyValueObserving.h"

#include <QDialog>

class QLabel;
class QLineEdit;
class UserDefaults;

class PreferencesDialog : public QDialog, public KeyValueObserver
{
    Q_OBJECT

public:
    explicit PreferencesDialog(UserDefaults *defaults, QWidget *parent = nullptr);
    ~PreferencesDialog() override;

    // One dialog per main window, raised when already open.
    static PreferencesDialog *showShared(QWidget *parent);

    QLineEdit *toleranceField() const { return m_tolerance; }
    // Says that the settings file could not be written; hidden otherwise.
    QLabel *problemLabel() const { return m_problem; }

    void observeValueForKeyPath(const QString &keyPath, QObject *object,
                                const KeyValueChange &change, void *context) override;

private:
    void commitTolerance();
    void showStoredTolerance();

    UserDefaults *m_defaults;
    QLineEdit *m_tolerance;
    QLabel *m_problem;
};
