#pragma once

namespace desk {

class Application;
class RuntimeFailure;

/// Shows a failure that a handler has trapped: its number and its description, titled "提示".
void reportFailure(Application& app, const RuntimeFailure& failure);

}  // namespace desk
