#pragma once

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "tbvnonpara/core/object_ref.hpp"

namespace TBVNonPara::Support {

/// The same object, which adds this name to `released` when the last reference to it goes.
template <typename Object>
ObjectRef<Object> noticed(const ObjectRef<Object>& object, std::string name,
                          std::vector<std::string>& released) {
    const auto notice = [object, name = std::move(name), &released](Object*) { released.push_back(name); };
    return std::shared_ptr<Object>(object.shared().get(), notice);
}

}  // namespace TBVNonPara::Support
