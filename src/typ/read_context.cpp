#include "typ/read_context.h"

#include "core/dialogues.h"

namespace quillmark {
namespace {

constexpr std::size_t kMiB = std::size_t{1} << 20U;
// A sound file costs at most twice its size (a picture may serve day and night). The rest is for
// files whose records overlap or reach beyond the end.
constexpr std::size_t kCostPerByte = 4;
constexpr std::size_t kCostBase = 8 * kMiB;
// Zeros that stand for missing bytes of pictures, which can be a hundred times what a file holds.
constexpr std::size_t kPaddingLimit = 2 * kMiB;
constexpr std::size_t kJournalBase = 2 * kMiB;
constexpr std::size_t kJournalEntryCost = 256;

}  // namespace

ReadContext::ReadContext(ByteView file, const Traduction& traduction, Journal& journal)
    : file_(file),
      traduction_(traduction),
      journal_(journal),
      costLimit_(kCostPerByte * file.size() + kCostBase),
      journalLimit_(file.size() + kJournalBase) {}

std::string identityText(std::uint16_t identity) {
    std::string Type;
    std::string SubType;
    setIdentity(Type, SubType, identity);
    return " 0x" + Type + '/' + SubType;
}

std::string ReadContext::contextMessage() const {
    switch (object_.kind) {
        case ObjectKind::Polygone:
            return Trad("Main", "Erreur dans la lecture du polygone", "msgErreurPolygone") +
                   identityText(object_.identity);
        case ObjectKind::Polyline:
            return Trad("Main", "Erreur dans la lecture de la polyligne", "msgErreurPolyligne") +
                   identityText(object_.identity);
        case ObjectKind::POI:
            return Trad("Main", "Erreur dans la lecture du POI", "msgErreurPOI") +
                   identityText(object_.identity);
        default:
            return {};
    }
}

void ReadContext::error(const ErrorFacts& facts) {
    if (!journalOpen()) {
        add(JournalKind::error, {});
        return;
    }
    const std::string context = contextMessage();
    std::string text =
        context.empty() ? Trad("Main", "Erreur inconnue lors de l'ouverture du fichier : erreur n°",
                               "msgErreurOuverture")
                        : context + ' ' + Trad("Main", "erreur n°", "msgNumeroErreur");
    text += std::to_string(static_cast<int>(facts.number));
    text += kLineBreak + Trad("VBErrors", "Description", "Description") + ": " + facts.description;
    text += kLineBreak + Trad("VBErrors", "Procedure", "Procedure") + ": ouvrir   ";
    text += kLineBreak + Trad("VBErrors", "Module", "Module") + ": frmMain";
    add(JournalKind::error, std::move(text));
}

void ReadContext::warning(const std::string& complaint) {
    if (!journalOpen()) {
        add(JournalKind::warning, {});
        return;
    }
    add(JournalKind::warning, Trad("Main", "Attention", "msgWarning") + ": " + complaint + "    ");
}

void ReadContext::add(JournalKind kind, std::string text) {
    if (journalOpen()) {
        std::string context = contextMessage();
        journalCost_ += kJournalEntryCost + text.size() + context.size();
        journal_.add({kind, std::move(context), 0, std::move(text),
                      group_ ? ObjectKind::ExtraPOI : object_.kind,
                      group_.value_or(object_.identity)});
        return;
    }
    bool& told = closingTold_[static_cast<std::size_t>(kind)];
    if (!told) {
        told = true;
        JournalEntry closing;
        closing.kind = kind;
        closing.text = Trad("Main", "Trop de messages : les suivants ne sont pas conservés.",
                            "msgJournalPlein");
        journal_.add(std::move(closing));
    }
}

bool ReadContext::pad(std::size_t bytes) {
    padding_ += bytes;
    return bytes == 0 || padding_ <= kPaddingLimit;
}

bool ReadContext::exhausted() {
    if (cost_ <= costLimit_) {
        return false;
    }
    if (!exhaustionTold_) {
        exhaustionTold_ = true;
        error(ErrorNumber::memory,
              "les objets se recouvrent et dépassent ce que le fichier peut contenir");
    }
    return true;
}

}  // namespace quillmark
