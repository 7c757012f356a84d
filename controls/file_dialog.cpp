#include "controls/file_dialog.h"

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>

FNDialog::FNDialog(QWidget* parent) : QPushButton("...", parent) {}

QString FNDialog::GetFileName(const QString& mode) {
  const QString folder = QDir::currentPath();
  const bool save = mode.toUpper() == "SAVE";
  QFileDialog dialog(this, Title, StartFolder());
  dialog.setNameFilter(FileTypesName + " (" +
                       QString(FileTypes).replace(';', ' ') + ")");
  dialog.setAcceptMode(save ? QFileDialog::AcceptSave
                            : QFileDialog::AcceptOpen);
  dialog.setFileMode(save ? QFileDialog::AnyFile : QFileDialog::ExistingFile);
  // Whoever saves asks about replacing a file, under the name it gets.
  dialog.setOption(QFileDialog::DontConfirmOverwrite);
  QString name;
  if (dialog.exec() == QDialog::Accepted && !dialog.selectedFiles().isEmpty())
    name = dialog.selectedFiles().first();
  QDir::setCurrent(folder);
  if (name.isEmpty() || !save) return name;
  return WithExtension(name, FileTypes);
}

QString FNDialog::StartFolder() const {
  if (QFileInfo(DefaultDir).isWritable()) return DefaultDir;
  return QDir::homePath();
}

QString FNDialog::WithExtension(const QString& name, const QString& fileTypes) {
  constexpr int kExtensionLength = 4;  // with its dot
  const QString extension =
      fileTypes.mid(fileTypes.indexOf('.'), kExtensionLength);
  // A dot in the name of a folder is none of the file's.
  const auto dot = name.lastIndexOf('.');
  if (dot < 0 || dot < name.lastIndexOf('/')) return name + extension;
  // Kept: an extension that only begins with it is left as it is.
  if (name.mid(dot, kExtensionLength) == extension) return name;
  return name.left(dot) + extension;
}
