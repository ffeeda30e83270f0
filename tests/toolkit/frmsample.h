#pragma once

#include "toolkit/forms/form.h"
#include "ui_frmsample.h"

#include <QString>
#include <QStringList>
#include <QTimer>

#include <functional>

/// A form with one control of every kind. It keeps the order of its events and does in its handlers what a test says.
class frmSample : public talvora::DesignedForm<frmSample, Ui::frmSample> {
 public:
    QString NameOf;      ///< a public field, as a caller sets and reads it
    QStringList events;  ///< what happened, in order
    std::function<void()> atLoad = [] {};
    std::function<void()> atOK = [] {};
    QTimer* Timer1 = nullptr;

    using Form::warn;

 private:
    void wire() override {
        Timer1 = new QTimer(window());
        on(ui->cmdOK, &QPushButton::clicked, &frmSample::cmdOK_Click);
        on(ui->cmdClose, &QPushButton::clicked, &frmSample::cmdClose_Click);
        on(Timer1, &QTimer::timeout, [this] { cmdOK_Click(); });
    }
    void Form_Load() override {
        events << QStringLiteral("load");
        atLoad();
    }
    void Form_Unload() override { events << QStringLiteral("unload"); }
    void cmdOK_Click() { atOK(); }
    void cmdClose_Click() {
        events << QStringLiteral("close");
        Unload();
    }
};

/// A second class, for windows over windows.
class frmInner : public talvora::DesignedForm<frmInner, Ui::frmSample> {};
