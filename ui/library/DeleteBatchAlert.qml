import QtQuick
import Mosslantern.Common
import Mosslantern.Library

/// Asks before a whole batch is deleted.
AlertView {
    id: root

    required property GalleryView gallery

    title: qsTr("Delete Batch?")
    message: qsTr("Are you sure you want to delete all %1 slideshows in '%2'? This action cannot be undone.")
             .arg(gallery.sizeOfBatchToDelete).arg(gallery.nameOfBatchToDelete)
    visible: gallery.showingDeleteBatchAlert
    stacksButtons: true
    onClosed: gallery.showingDeleteBatchAlert = false

    buttons: [
        PushButton {
            objectName: "confirmDeleteBatch"
            width: root.buttonWidth
            text: qsTr("Delete %1").arg(root.gallery.nameOfBatchToDelete)
            isDestructive: true
            onClicked: root.gallery.confirmDeletion()
        },
        PushButton {
            objectName: "cancelDeleteBatch"
            width: root.buttonWidth
            text: qsTr("Cancel")
            focus: true
            onClicked: root.gallery.showingDeleteBatchAlert = false
        }
    ]
}
