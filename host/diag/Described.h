// Parameters of a message together with the description that they refer to.
#pragma once

#include <vehicle/ServiceDescription.h>

#include <memory>
#include <utility>

namespace velkotx::host {

// Makes parameters that keep their description, since a sequence may keep one without its message.
template <class Parameters, class... Arguments>
std::shared_ptr<Parameters> makeDescribed(std::shared_ptr<const MessageDescription> message, Arguments&&... arguments) {
    struct Described {
        Described(std::shared_ptr<const MessageDescription>&& kept, Arguments&&... rest)
            : description(std::move(kept)), parameters(*description, std::forward<Arguments>(rest)...) {}

        const std::shared_ptr<const MessageDescription> description;
        Parameters parameters;
    };
    const auto described = std::make_shared<Described>(std::move(message), std::forward<Arguments>(arguments)...);
    return {described, &described->parameters};
}

}  // namespace velkotx::host
