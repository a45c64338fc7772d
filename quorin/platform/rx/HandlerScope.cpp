#include "quorin/platform/rx/HandlerScope.hpp"

namespace quorin::rx {
namespace {

thread_local int depth = 0;

}  // namespace

HandlerScope::HandlerScope() { ++depth; }

HandlerScope::~HandlerScope() { --depth; }

bool HandlerScope::isInside() { return depth > 0; }

}  // namespace quorin::rx
