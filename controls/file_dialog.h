// Asking the user for a file name: a small "..." button that can also be
// driven from code.
//
// The desktop's own dialog is used where there is one.  The process's current
// folder is the same after a dialog as before.

#pragma once

#include <QPushButton>
#include <QString>

class FNDialog : public QPushButton {
  Q_OBJECT

 public:
  explicit FNDialog(QWidget* parent = nullptr);

  QString FileTypes;  // "*.bmp" or "*.txt;*.dic;*.dat"
  QString Title;
  QString FileTypesName;  // "Dictionary Files"
  // Names and patterns to choose from, in place of the two above: all of them
  // at once to open; to save, the chosen one's ending goes to a name without
  // any of theirs.
  QList<std::pair<QString, QString>> Kinds;
  QString DefaultDir;  // where the dialog opens, if the user may write
                       // there, else the user's home

  // Shows the dialog, mode "OPEN" or "SAVE"; the full path, "" if cancelled.
  QString GetFileName(const QString& mode);

  // A name as it is saved: with the extension of the first file type in
  // place of its own.  "grid.old.txt" for "*.bmp" is "grid.old.bmp".
  static QString WithExtension(const QString& name, const QString& fileTypes);

 private:
  QStringList Filters(bool save) const;
  QString WithEndingOfKind(const QString& name, qsizetype kind) const;
  QString StartFolder() const;
};
