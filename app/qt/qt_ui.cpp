#include "qt_ui.h"

#include <QApplication>
#include <QClipboard>
#include <QEventLoop>
#include <QFileDialog>
#include <QLabel>
#include <QMessageBox>
#include <QScreen>
#include <QStringList>
#include <QStyle>
#include <QWidget>
#include <algorithm>
#include <filesystem>
#include <system_error>

#include "form_binder.h"
#include "foundation/dialogs/dialog_get_dir.h"
#include "foundation/dialogs/dialog_input_box.h"
#include "foundation/dialogs/dialog_msg_box.h"
#include "foundation/dialogs/message_styles.h"

namespace vardolin::qt {
namespace {

QString Q(const std::string& s) {
  return QString::fromStdString(s);
}

QString PatternsBothCases(const QString& patterns) {
  QStringList out;
  for (const QString& raw : patterns.split(u';', Qt::SkipEmptyParts)) {
    QString p = raw.trimmed();
    if (p == u"*.*") p = QStringLiteral("*");
    if (!out.contains(p)) out << p;
    for (const QString& variant : {p.toLower(), p.toUpper()})
      if (!out.contains(variant)) out << variant;
  }
  return out.join(u' ');
}

// The desktop style's own picture for the icon of a message box.
QPixmap StylePicture(MessageIcon icon, QStyle* style) {
  QStyle::StandardPixmap which;
  switch (icon) {
    case MessageIcon::Error:
      which = QStyle::SP_MessageBoxCritical;
      break;
    case MessageIcon::Question:
      which = QStyle::SP_MessageBoxQuestion;
      break;
    case MessageIcon::Warning:
      which = QStyle::SP_MessageBoxWarning;
      break;
    case MessageIcon::Information:
      which = QStyle::SP_MessageBoxInformation;
      break;
    default:
      return {};
  }
  const int size = style->pixelMetric(QStyle::PM_MessageBoxIconSize);
  return style->standardIcon(which).pixmap(size, size);
}

}  // namespace

QString ConvertFileFilter(const std::string& filter) {
  QStringList parts = Q(filter).split(u'|');
  QStringList out;
  for (int i = 0; i + 1 < parts.size(); i += 2)
    out << parts[i].trimmed() + QStringLiteral(" (") + PatternsBothCases(parts[i + 1]) + u')';
  if (parts.size() % 2 == 1 && !parts.back().trimmed().isEmpty())
    out << QStringLiteral("(") + PatternsBothCases(parts.back()) + u')';
  return out.join(QStringLiteral(";;"));
}

QtUi::QtUi() = default;
QtUi::~QtUi() = default;

QWidget* QtUi::DialogParent() const {
  if (QWidget* active = QApplication::activeWindow()) return active;
  if (!modal_stack_.empty() && modal_stack_.back()->window()) return modal_stack_.back()->window();
  for (const auto& [form, binder] : modeless_)
    if (binder->window() && binder->window()->isVisible()) return binder->window();
  return nullptr;
}

int QtUi::AskUser(const std::string& text, int style, const std::string& title) {
  if (!program_) return ButtonsOfStyle(style).back();
  Dialog_MsgBox box(*program_);
  box.ImpostaValori(text, style, title);
  RunModal(box, [style](QWidget* window) {
    if (auto* icon = window->findChild<QLabel*>(QStringLiteral("icon_style"))) {
      QPixmap picture = StylePicture(IconOfStyle(style), window->style());
      icon->setPixmap(picture);
      icon->setVisible(!picture.isNull());
    }
  });
  return box.ExitValue ? box.ExitValue : ButtonsOfStyle(style).back();
}

std::string QtUi::AskInput(const std::string& prompt, const std::string& title,
                           const std::string& initial) {
  if (!program_) return {};
  Dialog_InputBox box(*program_);
  box.ImpostaValori(prompt, title, initial);
  ShowModal(box);
  return box.Result();
}

std::string QtUi::AskFolder(const std::string& start, const std::string& title) {
  if (!program_) return {};
  Dialog_GetDir chooser(*program_);
  // Without a start of its own the chooser opens where the user last took a folder.
  chooser.ImpostaValori(start.empty() ? last_folder_ : start, title);
  ShowModal(chooser);
  if (!chooser.ExitValue) return {};
  last_folder_ = chooser.Path;
  return chooser.Path;
}

std::string QtUi::AskFile(const FileRequest& request, bool save) {
  // A start folder that isn't there (a desktop folder never made) would be taken for a file
  // name: the dialog opens in the nearest folder above it that stands.
  std::filesystem::path folder = request.start_folder.empty() ? last_folder_ : request.start_folder;
  std::error_code ec;
  while (!folder.empty() && folder != folder.parent_path() &&
         !std::filesystem::is_directory(folder, ec))
    folder = folder.parent_path();
  QString start = Q(folder.string());
  if (save && !request.file_name.empty())
    start = start.isEmpty() ? Q(request.file_name) : start + u'/' + Q(request.file_name);
  QFileDialog dialog(DialogParent(), Q(request.title), start, ConvertFileFilter(request.filter));
  dialog.setAcceptMode(save ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
  dialog.setFileMode(save ? QFileDialog::AnyFile : QFileDialog::ExistingFile);
  if (save && !request.file_name.empty()) dialog.selectFile(Q(request.file_name));
  // Qt's own dialog opens too small for its columns; it takes a good part of the screen.
  if (QScreen* screen = dialog.screen()) {
    const QSize room = screen->availableGeometry().size();
    dialog.resize(std::min(900, room.width() * 9 / 10), std::min(600, room.height() * 8 / 10));
  }
  if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return {};
  const std::string path = dialog.selectedFiles().front().toStdString();
  last_folder_ = dialog.directory().absolutePath().toStdString();
  return path;
}

std::string QtUi::AskOpenFile(const FileRequest& request) {
  return AskFile(request, false);
}

std::string QtUi::AskSaveFile(const FileRequest& request) {
  return AskFile(request, true);
}

void QtUi::ShowModal(Form& form) {
  RunModal(form, {});
}

void QtUi::RunModal(Form& form, const std::function<void(QWidget*)>& prepare) {
  form.Load();
  if (!form.IsLoaded()) return;
  FormBinder binder(form, DialogParent());
  if (!binder.window()) {
    QMessageBox::critical(nullptr, QStringLiteral("Vardolin"),
                          QStringLiteral("The window %1 has no layout.").arg(Q(form.Name())));
    form.Unload();
    return;
  }
  // Timers of the windows below stop while this one is up.
  std::vector<FormBinder*> paused;
  for (const auto& [f, b] : modeless_) paused.push_back(b.get());
  for (FormBinder* b : modal_stack_) paused.push_back(b);
  for (FormBinder* b : paused) b->PauseTimers();
  modal_stack_.push_back(&binder);

  if (prepare) prepare(binder.window());
  QEventLoop loop;
  QObject::connect(&binder, &FormBinder::unloaded, &loop, &QEventLoop::quit);
  binder.window()->setWindowModality(Qt::ApplicationModal);
  binder.window()->show();
  binder.window()->raise();
  binder.window()->activateWindow();
  if (form.IsLoaded()) loop.exec();

  modal_stack_.pop_back();
  for (FormBinder* b : paused) b->ResumeTimers();
}

void QtUi::ShowModeless(Form& form) {
  form.Load();
  if (!form.IsLoaded()) return;
  auto it = modeless_.find(&form);
  if (it != modeless_.end() && !it->second->Detached()) {
    it->second->window()->show();
    it->second->window()->raise();
    return;
  }
  if (it != modeless_.end()) modeless_.erase(it);
  auto binder = std::make_unique<FormBinder>(form, DialogParent());
  if (!binder->window()) {
    QMessageBox::critical(nullptr, QStringLiteral("Vardolin"),
                          QStringLiteral("The window %1 has no layout.").arg(Q(form.Name())));
    return;
  }
  FormBinder* raw = binder.get();
  // The binder leaves the table as soon as its form has unloaded, and is deleted once the
  // form's own notification is over.
  QObject::connect(raw, &FormBinder::unloaded, raw, [this, raw] {
    for (auto i = modeless_.begin(); i != modeless_.end(); ++i)
      if (i->second.get() == raw) {
        i->second.release()->deleteLater();
        modeless_.erase(i);
        return;
      }
  });
  modeless_[&form] = std::move(binder);
  raw->window()->show();
  raw->window()->raise();
}

QWidget* QtUi::WindowOf(const Form& form) const {
  auto it = modeless_.find(&form);
  return it == modeless_.end() || it->second->Detached() ? nullptr : it->second->window();
}

const Form* QtUi::ActiveForm() {
  QWidget* active = QApplication::activeWindow();
  if (!active) return nullptr;
  for (FormBinder* b : modal_stack_)
    if (b->window() == active) return &b->form();
  for (const auto& [form, binder] : modeless_)
    if (!binder->Detached() && binder->window() == active) return form;
  return nullptr;
}

void QtUi::DoEvents() {
  QCoreApplication::processEvents();
}

void QtUi::SetClipboardText(const std::string& text) {
  QApplication::clipboard()->setText(Q(text));
}

std::string QtUi::ClipboardText() {
  return QApplication::clipboard()->text().toStdString();
}

}  // namespace vardolin::qt
