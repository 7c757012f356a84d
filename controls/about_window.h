// The about box.

#pragma once

#include <QDialog>
#include <QString>

class AboutForm : public QDialog {
  Q_OBJECT

 public:
  // `contact` is the line that says whom to write to; `version` is "1.0".
  AboutForm(const QString& contact, const QString& version,
            QWidget* parent = nullptr);
};
