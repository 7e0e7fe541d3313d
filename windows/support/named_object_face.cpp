#include "windows/support/named_object_face.h"

#include "kebu_anagkelmoria.h"
#include "windows/support/com_object.h"

namespace kebu::windows {

namespace {

class NamedObjectFace final : public DualObject<INamedObject, IOwnObject> {
public:
  explicit NamedObjectFace(std::shared_ptr<host::NamedObject> object)
      : object_(std::move(object)), entry_(*object_, this) {}

  STDMETHODIMP put_Name(BSTR value) override {
    return hresultOf([&] { object_->setName(Bstr::utf8Of(value)); });
  }
  STDMETHODIMP get_Name(BSTR *value) override {
    if (!value)
      return E_POINTER;
    return hresultOf([&] { *value = Bstr(object_->Name()).detach(); });
  }
  std::shared_ptr<Object> STDMETHODCALLTYPE object() override {
    return object_;
  }

private:
  std::shared_ptr<host::NamedObject> object_;
  FaceEntry entry_;
};

} // namespace

ComPtr<IDispatch>
newNamedObjectFace(const std::shared_ptr<host::NamedObject> &object) {
  return ComPtr<IDispatch>::adopt(new NamedObjectFace(object));
}

} // namespace kebu::windows
