#pragma once

#include <QWidget>
#include <functional>

// Stands in a child window's place until that window is part of the
// station: its caption, and a word that it is not there yet. Closing it
// runs what closing the real window would run.
class NotYetWindow final : public QWidget {
public:
    NotYetWindow(const QString &name, const QString &caption, QWidget *parent = nullptr);
    void setOnClose(std::function<void()> onClose) { m_onClose = std::move(onClose); }

protected:
    void closeEvent(QCloseEvent *event) override;

private:
    std::function<void()> m_onClose;
};
