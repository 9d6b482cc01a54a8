#include "acquire/scanner_chooser.h"

#include "acquire/scan_settings.h"
#include "widgets/form_builder.h"

#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QStackedWidget>
#include <utility>

namespace acquire {

namespace {

constexpr int kWidth = 380; // pixels
constexpr int kHeight = 180;
constexpr int kNameRole = Qt::UserRole; // its bytes, which need be no UTF-8

const QString kSearching = QStringLiteral("Looking for scanners...");
const QString kNone = QStringLiteral("No scanner was found.\n\nConnect one, switch it on, "
                                     "and search again.");

} // namespace

ScannerChooser::ScannerChooser(QWidget* window, std::string before)
    : StripWindow(QStringLiteral("Choose a Scanner"))
    , m_before(std::move(before))
{
    setParent(window, windowFlags());
    setObjectName("ScannerChooser");
    buildControls();
    search();
}

void ScannerChooser::buildControls()
{
    widgets::FormBuilder form(*this);
    m_pages = form.add(new QStackedWidget, "pages", "", 1);
    m_pages->setMinimumSize(kWidth, kHeight);
    m_list = form.own(new QListWidget, "lstScanners", "Scanners");
    m_text = form.own(new QLabel, "lblScanners", "Scanners");
    m_text->setAlignment(Qt::AlignCenter);
    m_text->setWordWrap(true);
    m_pages->addWidget(m_list);
    m_pages->addWidget(m_text);
    m_select = form.addButtons(
        {{"cmdAgain", "Search &again", [this] { search(); }},
         {"cmdSelect", "&Select", [this] { choose(); }, widgets::PressedBy::Return},
         {"cmdCancel", "&Cancel", [this] { close(); }, widgets::PressedBy::Escape}});
    m_again = findChild<QPushButton*>("cmdAgain");
    connect(m_list, &QListWidget::itemDoubleClicked, this, &ScannerChooser::choose);
}

void ScannerChooser::search()
{
    delete m_search;
    m_search = platform::scanners().search(this);
    connect(m_search, &platform::ScannerSearch::found, this, &ScannerChooser::take);
    connect(m_search, &platform::ScannerSearch::failed, this,
            [this](platform::ScanFailure why) { say(failureText(why)); });
    say(kSearching);
    m_again->setEnabled(false);
}

// A text instead of the list.
void ScannerChooser::say(const QString& text)
{
    m_text->setText(text);
    m_pages->setCurrentWidget(m_text);
    m_select->setEnabled(false);
    m_again->setEnabled(true);
}

void ScannerChooser::take(const std::vector<platform::ScannerFacts>& scanners)
{
    if (scanners.empty()) {
        say(kNone);
        return;
    }
    m_list->clear();
    for (const platform::ScannerFacts& scanner : scanners) {
        auto* item = new QListWidgetItem(scannerText(scanner) + QLatin1Char('\n') +
                                             QString::fromStdString(scanner.name),
                                         m_list);
        item->setData(kNameRole, QByteArray::fromStdString(scanner.name));
        if (m_list->currentItem() == nullptr || scanner.name == m_before) {
            m_list->setCurrentItem(item);
        }
    }
    m_pages->setCurrentWidget(m_list);
    m_select->setEnabled(true);
    m_again->setEnabled(true);
    m_list->setFocus();
}

void ScannerChooser::choose()
{
    const QListWidgetItem* item = m_list->currentItem();
    if (item != nullptr && m_select->isEnabled()) {
        m_choice = item->data(kNameRole).toByteArray().toStdString();
        close();
    }
}

} // namespace acquire
