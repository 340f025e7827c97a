// VndiffOperands.cpp - "-" and streams as operands, through the component's
// stream copies, and the names the user wrote for them in messages.
#include "VndiffHost.h"

#include "compare/VnStreamCopy.h"

namespace vndiff {

static CVnStreamCopies g_streams;

std::string ResolveOperand(const std::string& operand) {
  CString why, path;
  try {
    path = g_streams.Resolve(Wide(operand), why);
  } catch (CException* e) {
    throw Failure(DescribeException(e, operand));
  }
  if (path.IsEmpty())
    throw Failure(operand + ": " + Narrow(why));
  return Narrow(path);
}

std::string OperandLabel(const std::string& path) { return Narrow(g_streams.Label(Wide(path))); }
std::string Relabel(std::string message) { return Narrow(g_streams.Relabel(Wide(message))); }

}  // namespace vndiff
