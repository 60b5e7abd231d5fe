#include "app/first_page.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QShortcut>
#include <array>
#include <utility>

#include "app/head_picture.h"
#include "app/trace_example.h"
#include "platform/qt/help.h"

namespace korvinel {
namespace {

constexpr std::array<const char*, 4> steps{
    "<b>Nomi.</b> Scrivere nel pannello il nome del file e quello del soggetto. Ogni esame ha un nome nuovo.",
    "<b>Start.</b> Il programma si collega allo strumento, in quattro secondi; poi i segnali si vedono, ma <b>non si "
    "registra</b>. È il momento di controllarli.",
    "<b>Registra.</b> Da qui comincia l'esame. Per un'analisi affidabile occorrono almeno sette minuti di dati.",
    "<b>Stop, poi Analisi.</b> Stop salva il file al blocco seguente, entro tre secondi; Analisi apre il rapporto."};

constexpr platform::Help understood{"Chiude questa pagina; si riapre con il pulsante ? in basso. (Esc)"};
constexpr platform::Help notAgain{"La pagina non si apre più da sola; resta il pulsante ? in basso."};

QLabel* textOf(const QString& text, QWidget* parent) {
  auto* label = new QLabel(text, parent);
  label->setTextFormat(Qt::RichText);
  label->setWordWrap(true);
  return label;
}

}  // namespace

FirstPage::FirstPage(QWidget* parent, std::function<void(bool never)> onClosed)
    : QFrame(parent), onClosed_(std::move(onClosed)) {
  setFrameStyle(QFrame::Box | QFrame::Plain);
  setAutoFillBackground(true);
  setBackgroundRole(QPalette::Base);
  auto* page = new QGridLayout(this);
  page->setContentsMargins(16, 10, 16, 10);
  page->setHorizontalSpacing(18);
  page->setColumnStretch(0, 2);
  page->setColumnStretch(1, 3);
  page->setRowStretch(1, 1);
  addHeading(*page);
  addElectrodes(*page);
  addSteps(*page);
  addExamples(*page);
  addFoot(*page);
  // Works while the page is visible, wherever the keyboard is.
  connect(new QShortcut(Qt::Key_Escape, this), &QShortcut::activated, this, [this] { dismiss(); });
  hide();
}

void FirstPage::addHeading(QGridLayout& page) {
  page.addWidget(textOf("<span style='font-size:large'><b>Per cominciare</b></span>", this), 0, 0, 1, 2);
}

void FirstPage::addElectrodes(QGridLayout& page) {
  auto* column = new QVBoxLayout;
  auto* head = new HeadPicture(this);
  head->setAccessibleName("Testa vista dall'alto con i quattro elettrodi");
  column->addWidget(head, 1);
  column->addWidget(
      textOf("<b>Gli elettrodi.</b> F1 e F2 sulla fronte, T5 e T6 ai lati, dietro le orecchie. La testa è vista "
             "dall'alto, con il naso in su: i numeri dispari sono a sinistra, i pari a destra.",
             this));
  page.addLayout(column, 1, 0);
}

void FirstPage::addSteps(QGridLayout& page) {
  auto* list = new QGridLayout;
  list->setColumnStretch(1, 1);
  list->setHorizontalSpacing(12);
  for (int step = 0; step < static_cast<int>(steps.size()); ++step) {
    auto* number =
        textOf(QString("<span style='font-size:x-large; color:#0277bd'><b>%1</b></span>").arg(step + 1), this);
    number->setWordWrap(false);
    list->addWidget(number, step, 0, Qt::AlignTop);
    list->addWidget(textOf(steps[static_cast<std::size_t>(step)], this), step, 1, Qt::AlignTop);
    list->setRowStretch(step, 1);
  }
  page.addLayout(list, 1, 1);
}

void FirstPage::addExamples(QGridLayout& page) {
  using Kind = TraceExample::Kind;
  auto* row = new QHBoxLayout;
  const auto add = [&](Kind kind, const char* name, const char* meaning) {
    row->addWidget(new TraceExample(kind, name, meaning, this));
  };
  add(Kind::good, "buono", "Onde irregolari attorno al centro: si può registrare.");
  add(Kind::flat, "piatto", "Nessun segnale: l'elettrodo o il suo cavo è staccato.");
  add(Kind::saturated, "saturo", "Il segnale tocca i bordi: l'elettrodo fa un cattivo contatto.");
  add(Kind::hum, "50 Hz", "Una fascia fitta e regolare: la rete elettrica. Allontanare i cavi, controllare la massa.");
  add(Kind::movement, "movimento", "Un salto isolato: un battito di ciglia o un movimento.");
  row->setSpacing(8);
  page.addWidget(textOf("<b>I segnali.</b> Registrare quando tutti e quattro somigliano al primo.", this), 2, 0, 1, 2);
  page.addLayout(row, 3, 0, 1, 2);
  page.setRowMinimumHeight(3, 78);
}

void FirstPage::addFoot(QGridLayout& page) {
  auto* foot = new QHBoxLayout;
  never_ = new QCheckBox("Non mostrare più", this);
  platform::explain(*never_, notAgain);
  auto* button = new QPushButton("Ho capito", this);
  platform::explain(*button, understood);
  connect(button, &QPushButton::clicked, this, [this] { dismiss(); });
  foot->addWidget(never_);
  foot->addStretch();
  foot->addWidget(button);
  page.addLayout(foot, 4, 0, 1, 2);
}

void FirstPage::present() {
  show();
  raise();
}

void FirstPage::takeAway() { hide(); }

void FirstPage::dismiss() {
  hide();
  onClosed_(never_->isChecked());
}

}  // namespace korvinel
