#pragma once

namespace velorama {

/// Closes the modal forms that are up. The system may end the program under any of them: their
/// handlers are still running then, so they are not deleted.
void closeModalForms();

}  // namespace velorama
