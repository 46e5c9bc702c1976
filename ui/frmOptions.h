#pragma once

#include <QDialog>

class QCheckBox;
class QComboBox;
class QFrame;
class QLineEdit;
class QTabBar;
class SettingsStore;
class clsoApp;

// The options dialog: serial port, administrator password and the sound
// option. Apply writes the three to the settings store and the last two to
// clsoApp; the port number in use stays as it is until WczytajOpcje reads it.
// The password can be changed only in control mode.
//
// Shown modally (exec()) by the start's port loop and not modally by the
// menu; the menu's caller sets Qt::WA_DeleteOnClose so that it goes with
// its window.
class frmOptions final : public QDialog {
public:
    frmOptions(clsoApp &app, SettingsStore &store, QWidget *parent = nullptr);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    static constexpr int PageCount = 4;

    void buildTabStrip();
    void buildPages();
    void buildGeneralPage(QWidget *page);
    void buildButtons();
    void load();
    void apply();
    QRect pageArea() const;
    void placePages();
    void selectNextTab();

    clsoApp &m_app;
    SettingsStore &m_store;
    QTabBar *tbsOptions;
    QFrame *m_tabPanel;
    QWidget *picOptions[PageCount];
    QComboBox *cmbPort;
    QLineEdit *txtHaslo;
    QCheckBox *chkDzwieki;
};
