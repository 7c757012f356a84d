#include "controls/lookup_window.h"

#include <QBoxLayout>
#include <QCursor>
#include <QDesktopServices>
#include <QImage>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QPushButton>
#include <QTextBrowser>
#include <QTimer>

#include "controls/page_bounds.h"
#include "controls/paper_palette.h"
#include "controls/plain_text.h"

namespace {

constexpr char kPath[] = "/cgi-bin/dict.pl?term=";
constexpr qint64 kLargestAnswer = 1 << 20;

// A page that loads nothing: no pictures, no styles from elsewhere.
class PageView : public QTextBrowser {
 public:
  // Empty, but there: what is not, Qt reads from a file of that name.
  QVariant loadResource(int type, const QUrl&) override {
    if (type != QTextDocument::ImageResource) return QByteArray("");
    QImage nothing(1, 1, QImage::Format_ARGB32_Premultiplied);
    nothing.fill(Qt::transparent);
    return nothing;
  }
};

}  // namespace

LookupForm::LookupForm(const QString& word, const QString& address,
                       BuiltIn builtIn, QWidget* parent)
    : QDialog(parent),
      address_(address),
      builtIn_(std::move(builtIn)),
      current_(address + kPath + word) {
  setObjectName("Form3");
  setWindowTitle(PlainBrief(word.isEmpty() ? tr("Dictionary") : word));
  resize(560, 480);
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(4, 4, 4, 4);
  page_ = new PageView;
  page_->setObjectName("WbDictionary");
  page_->setAccessibleName(tr("Meaning"));
  page_->setOpenLinks(false);
  page_->setPalette(PaperPalette());
  page_->document()->setDefaultStyleSheet(
      "a { color: #235a97; text-decoration: none; }");
  connect(page_, &QTextBrowser::anchorClicked, this, &LookupForm::Follow);
  layout->addWidget(page_);
  auto* buttons = new QHBoxLayout;
  layout->addLayout(buttons);
  buttons->addStretch();
  if (!address_.isEmpty()) {
    auto* open = new QPushButton(tr("Open in &Browser"));
    open->setObjectName("OpenInBrowser");
    open->setAutoDefault(false);
    connect(open, &QPushButton::clicked, this,
            [this] { QDesktopServices::openUrl(current_); });
    buttons->addWidget(open);
  }
  auto* close = new QPushButton(tr("&Close"));
  close->setObjectName("CloseLookup");
  connect(close, &QPushButton::clicked, this, &QDialog::reject);
  buttons->addWidget(close);
}

LookupForm::~LookupForm() {
  if (reply_) reply_->abort();
}

void LookupForm::Navigate() {
  Ask(current_);
}

void LookupForm::Follow(const QUrl& link) {
  const QUrl url = current_.resolved(link);
  if (link.path().isEmpty() && link.hasFragment())
    page_->scrollToAnchor(link.fragment());
  else if (IsOfService(url))
    Ask(url);
}

bool LookupForm::IsOfService(const QUrl& url) const {
  if (address_.isEmpty()) return url.scheme().isEmpty() && url.host().isEmpty();
  const QUrl service(address_);
  return url.scheme() == service.scheme() && url.host() == service.host() &&
         url.port() == service.port();
}

void LookupForm::Ask(const QUrl& url) {
  current_ = url;
  if (address_.isEmpty()) {
    // All of it: the word is appended as it is, whatever is in it.
    const QString query = url.query(QUrl::FullyDecoded);
    ShowPage(builtIn_(query.mid(query.indexOf('=') + 1)));
    return;
  }
  if (url.scheme() != "http" && url.scheme() != "https") {
    ShowFailure(
        tr("The address of the service must begin with http:// or "
           "https://."));
    return;
  }
  page_->setPlainText(tr("Asking %1 ...").arg(url.host()));
  setCursor(Qt::BusyCursor);
  if (!network_) network_ = new QNetworkAccessManager(this);
  if (reply_) reply_->abort();
  QNetworkRequest request(url);
  // Not compressed, so that it is as long as it seems.
  request.setRawHeader("Accept-Encoding", "identity");
  request.setAttribute(QNetworkRequest::RedirectPolicyAttribute,
                       QNetworkRequest::SameOriginRedirectPolicy);
  QNetworkReply* reply = reply_ = network_->get(request);
  connect(reply, &QNetworkReply::downloadProgress, this,
          [reply](qint64 received, qint64) {
            if (received > kLargestAnswer) reply->abort();
          });
  QTimer::singleShot(timeoutMs, reply, &QNetworkReply::abort);
  connect(reply, &QNetworkReply::finished, this,
          [this, reply] { ShowAnswer(reply); });
}

void LookupForm::ShowAnswer(QNetworkReply* reply) {
  reply->deleteLater();
  if (reply != reply_) return;  // another page was asked for meanwhile
  reply_ = nullptr;
  unsetCursor();
  if (reply->error() == QNetworkReply::OperationCanceledError) {
    ShowFailure(tr("No answer came within %1 seconds, or it was too long.")
                    .arg(timeoutMs / 1000));
  } else if (reply->error() != QNetworkReply::NoError) {
    ShowFailure(reply->errorString());
  } else if (reply->header(QNetworkRequest::ContentTypeHeader)
                 .toString()
                 .startsWith("text/plain")) {
    page_->setPlainText(BoundedText(QString::fromUtf8(reply->readAll())));
  } else {
    ShowPage(QString::fromUtf8(reply->readAll()));
  }
}

void LookupForm::ShowPage(const QString& html) {
  if (const auto page = PageWithinBounds(html))
    page_->setHtml(*page);
  else
    page_->setPlainText(BoundedText(TextOfPage(html)));
}

void LookupForm::ShowFailure(const QString& why) {
  ShowPage(tr("<h3>The word could not be looked up</h3><p>%1</p>"
              "<p>The service asked was %2</p>")
               .arg(why.toHtmlEscaped(), address_.toHtmlEscaped()));
}
