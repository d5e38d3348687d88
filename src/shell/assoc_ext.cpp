#include "shell/assoc_ext.h"

#include "core/lib_txt.h"
#include "shell/assoc_com.h"
#include "shell/assoc_reg.h"

#include <QFile>

#include <utility>

namespace velorama {
namespace {

const QString albumExtension = QStringLiteral(".vlr");
const QString albumClass = QStringLiteral("VLRFile");
const QString storedName = QStringLiteral("Stored");
const QString defaultValue;

// The third icon of the program file, counted from 0.
constexpr int albumIcon = 2;

QByteArray resource(const QString& name) {
    QFile file(QStringLiteral(":/filetype/") + name);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QString albumDescription() {
    return libTxt.ProductName + QStringLiteral(" File");
}

FileType albumType(const QString& program, const QString& description) {
    FileType type;
    type.id = QStringLiteral("velorama");
    type.mimeType = QStringLiteral("application/x-velorama-album");
    type.extension = albumExtension;
    type.description = description;
    type.icon = resource(QStringLiteral("velorama-album.svg"));
    type.program = program;
    type.programName = libTxt.ProductName;
    type.programComment = QStringLiteral("Turn folders of photographs into full-screen shows");
    type.programIcon = resource(QStringLiteral("velorama.svg"));
    return type;
}

}  // namespace

FileAssociation::FileAssociation(RegistryStore& store, FileTypes& fileTypes, AppPlace app)
    : store_(store), fileTypes_(fileTypes), app_(std::move(app)) {}

void FileAssociation::AssociationCheck() {
    if (!AssociationMake()) {
        fileTypes_.tidy(albumType(ShortPath(programPath(app_)), albumDescription()));
    }
}

bool FileAssociation::AssociationMake() {
    if (!FirstRunMark()) {
        return false;
    }
    const QString program = ShortPath(programPath(app_));
    const QString description = albumDescription();
    FileTypeCreate(program, description, albumIcon, albumClass, QString());
    if (FileTypeLink(albumExtension, albumClass)) {
        fileTypes_.link(albumType(program, description));
    }
    return true;
}

bool FileAssociation::FirstRunMark() {
    const QString details = detailsKey(app_);
    if (RegDwordGet(store_, Hive::CurrentUser, details, storedName) == 1) {
        return false;
    }
    const QString former = RegStringGet(store_, Hive::ClassesRoot, albumExtension, defaultValue);
    RegStringSet(store_, Hive::CurrentUser, details, albumExtension, former);
    RegDwordSet(store_, Hive::CurrentUser, details, storedName, 1);
    return true;
}

void FileAssociation::FileTypeCreate(const QString& command, const QString& description,
                                     int iconIndex, const QString& className,
                                     const QString& extraVerb) {
    if (!extraVerb.isEmpty()) {
        return;
    }
    setDefault(className, description);
    setDefault(className + QStringLiteral("\\shell\\open\\command"),
               command + QStringLiteral(" %1"));
    setDefault(className + QStringLiteral("\\DefaultIcon"),
               command + u',' + QString::number(iconIndex));
    // The root of all classes gets the description too, as it always has.
    setDefault(QString(), description);
}

bool FileAssociation::FileTypeLink(const QString& extension, const QString& className) {
    return setDefault(extension, className);
}

bool FileAssociation::setDefault(const QString& classKey, const QString& text) {
    return RegStringSet(store_, Hive::ClassesRoot, classKey, defaultValue, text);
}

}  // namespace velorama
