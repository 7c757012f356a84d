#include "controls/file_dialog.h"

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>

FNDialog::FNDialog(QWidget* parent) : QPushButton("...", parent) {}

QString FNDialog::GetFileName(const QString& mode) {
  const QString folder = QDir::currentPath();
  const bool save = mode.toUpper() == "SAVE";
  QFileDialog dialog(this, Title, StartFolder());
  dialog.setNameFilters(Filters(save));
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
  if (Kinds.isEmpty()) return WithExtension(name, FileTypes);
  return WithEndingOfKind(
      name, dialog.nameFilters().indexOf(dialog.selectedNameFilter()));
}

QStringList FNDialog::Filters(bool save) const {
  const auto filter = [](const QString& name, const QString& patterns) {
    return name + " (" + QString(patterns).replace(';', ' ') + ")";
  };
  if (Kinds.isEmpty()) return {filter(FileTypesName, FileTypes)};
  QStringList filters, patterns;
  for (const auto& [name, pattern] : Kinds) {
    filters.append(filter(name, pattern));
    patterns.append(pattern);
  }
  if (!save) filters.prepend(filter(tr("All puzzles"), patterns.join(' ')));
  return filters;
}

QString FNDialog::WithEndingOfKind(const QString& name, qsizetype kind) const {
  for (const auto& [kindName, pattern] : Kinds)
    if (name.endsWith(pattern.mid(1), Qt::CaseInsensitive)) return name;
  return kind < 0 ? name : name + Kinds[kind].second.mid(1);
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
