#include "filters/register_search.h"

#include <chrono>
#include <memory>

#include "filters/search_filter.h"
#include "model/account.h"
#include "model/current_account.h"
#include "platform/message.h"

namespace tallyfold {
namespace {

constexpr std::chrono::milliseconds kSearchDelay{500};

bool TakesText(const LDGRFilter* filter) {
  return dynamic_cast<const LDGRSearchFilter*>(filter) != nullptr;
}

SearchFieldState FieldFor(const LDGRFilter* filter) {
  if (filter == nullptr) return {};
  const std::string name = filter->GetName();
  if (!TakesText(filter)) return {name, false, Message("Filter '{1}'", {name}), true};
  const std::string data(filter->GetDataForSetCategory().StringValue());
  return {data, true, Message("Search '{1}'", {name}), true};
}

}  // namespace

void RegisterSearch::Search_Field(std::optional<std::string_view> text) {
  LDGRAccount* const account = CurrentAccount();
  if (account == nullptr || !text) return;
  host_.AsKeystroke([this, account, &text] {
    if (host_.ShownRegister() == RegisterKind::Entry) {
      account->setEntryFilterData(*text);
    } else {
      account->setReconcileFilterData(*text);
    }
  });
  if (SearchFieldState* const field = ShownField()) field->text = *text;
  search_.Start(kSearchDelay, [this] { Search(); });
}

void RegisterSearch::Search() {
  host_.AsOne([this] {
    if (CurrentAccount() == nullptr) return;
    host_.ReloadShownRegister();
    host_.UpdateEntryDependentButtons();
    if (host_.ShownRegister() == RegisterKind::Entry) host_.UpdateBalanceField();
  });
}

void RegisterSearch::Search_Cancel() {
  host_.AsOne([this] {
    const LDGRAccount* const account = CurrentAccount();
    if (account == nullptr) return;
    switch (host_.ShownRegister()) {
      case RegisterKind::Entry:
        return Filter_Select(TakesText(account->entryFilter().get()) ? account->entryFilterType()
                                                                     : filter_type::kGeneral);
      case RegisterKind::Reconcile:
        return Filter_Select(TakesText(account->reconcileFilter().get())
                                 ? account->reconcileFilterType()
                                 : filter_type::kGeneral);
      case RegisterKind::Other:
        return;
    }
  });
}

void RegisterSearch::Filter_Select(std::int32_t type) {
  host_.AsOne([this, type] {
    host_.StopSpeech();
    LDGRAccount* const account = CurrentAccount();
    std::shared_ptr<LDGRFilter> filter;
    if (account != nullptr) {
      switch (host_.ShownRegister()) {
        case RegisterKind::Entry:
          account->setEntryFilterType(type);
          account->setEntryFilterData("");
          filter = account->entryFilter();
          host_.ReloadShownRegister();
          break;
        case RegisterKind::Reconcile:
          account->setReconcileFilterType(type);
          account->setReconcileFilterData("");
          filter = account->reconcileFilter();
          host_.ReloadShownRegister();
          break;
        case RegisterKind::Other:
          break;
      }
    }
    PopulateForFilterType(type);
    PopulateForFilter(filter.get());
  });
}

void RegisterSearch::PopulateForFilterType(std::int32_t type) {
  state_.menu_type = type;
  host_.SearchStateChanged();
}

void RegisterSearch::Clear() {
  search_.Cancel();
  state_ = {};
  host_.SearchStateChanged();
}

void RegisterSearch::PopulateForFilter(const LDGRFilter* filter) {
  host_.AsOne([this, filter] {
    if (SearchFieldState* const field = ShownField()) {
      *field = FieldFor(filter);
      host_.SearchStateChanged();
      if (field->is_enabled) host_.FocusSearchField();
    }
    host_.UpdateEntryDependentButtons();
    if (host_.ShownRegister() == RegisterKind::Entry) host_.UpdateBalanceField();
  });
}

SearchFieldState* RegisterSearch::ShownField() noexcept {
  switch (host_.ShownRegister()) {
    case RegisterKind::Entry:
      return &state_.entry;
    case RegisterKind::Reconcile:
      return &state_.reconcile;
    case RegisterKind::Other:
      return nullptr;
  }
  return nullptr;
}

}  // namespace tallyfold
