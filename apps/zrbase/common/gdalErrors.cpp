#include "common/gdalErrors.h"

#include <cpl_error.h>

#include "common/textFormat.h"

namespace {

void CPL_STDCALL keepFailure(CPLErr errorClass, CPLErrorNum /*number*/, const char* text) {
  if (errorClass >= CE_Failure) {
    static_cast<GdalErrors*>(CPLGetErrorHandlerUserData())->keep(text);
  }
}

}  // namespace

GdalErrors::GdalErrors() { CPLPushErrorHandlerEx(keepFailure, this); }

GdalErrors::~GdalErrors() { CPLPopErrorHandler(); }

std::string GdalErrors::reason(const std::string& otherwise) const {
  return failed() ? firstFailure_ : otherwise;
}

void GdalErrors::keep(const std::string& text) {
  if (firstFailure_.empty()) {
    firstFailure_ = textFormat::oneLine(text);
  }
}
