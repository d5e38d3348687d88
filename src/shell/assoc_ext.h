#pragma once

#include "platform/session/file_types.h"
#include "platform/store/registry_store.h"
#include "shell/app.h"

namespace velorama {

/// Links album files to the program, once for each user, at the first run (`mASSOCEXT`). No failure
/// is told: where the classes may not be written, the run counts as the first one all the same.
class FileAssociation {
public:
    /// `fileTypes` carries out on the desktop what the keys stand for.
    FileAssociation(RegistryStore& store, FileTypes& fileTypes, AppPlace app = App());

    /// Makes the association at the first run. Later ones only look whether the desktop's entry is
    /// still of use; the keys are not touched again.
    void AssociationCheck();

    /// The whole of the first-run step; true if it ran.
    bool AssociationMake();
    /// True if the association is to be made now. Notes what the extension pointed at before.
    bool FirstRunMark();
    /// Writes the keys of a class. `extraVerb` would add a verb to a class that is there and write
    /// nothing else; nobody asks for that, and nothing is written then.
    void FileTypeCreate(const QString& command, const QString& description, int iconIndex,
                        const QString& className, const QString& extraVerb);
    /// False where the classes may not be written.
    bool FileTypeLink(const QString& extension, const QString& className);

private:
    bool setDefault(const QString& classKey, const QString& text);

    RegistryStore& store_;
    FileTypes& fileTypes_;
    AppPlace app_;
};

}  // namespace velorama
