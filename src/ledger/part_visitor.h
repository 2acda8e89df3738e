#pragma once

namespace tallyfold {

class AccountListPart;
class AccountPartEdit;
class LDGRAccountEntry;
class LDGRAccountSchedule;
class LDGRAccountSummary;
class PasswordEdit;
class TypesEdit;
template <typename Record>
class EditPart;
template <typename Record>
class ListPart;

// Looks at the parts of a change one by one.
class PartVisitor {
 public:
  virtual ~PartVisitor() = default;
  virtual void Visit(const ListPart<LDGRAccountEntry>& part, bool inserts) = 0;
  virtual void Visit(const ListPart<LDGRAccountSchedule>& part, bool inserts) = 0;
  virtual void Visit(const ListPart<LDGRAccountSummary>& part, bool inserts) = 0;
  virtual void Visit(const AccountListPart& part, bool inserts) = 0;
  virtual void Visit(const EditPart<LDGRAccountEntry>& part) = 0;
  virtual void Visit(const EditPart<LDGRAccountSchedule>& part) = 0;
  virtual void Visit(const EditPart<LDGRAccountSummary>& part) = 0;
  virtual void Visit(const AccountPartEdit& part) = 0;
  virtual void Visit(const TypesEdit& part) = 0;
  virtual void Visit(const PasswordEdit& part) = 0;
};

}  // namespace tallyfold
