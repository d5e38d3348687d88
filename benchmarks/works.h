#pragma once

#include "contest.h"

namespace velorama::bench {

/// Each makes what its measurements need, the first time also the pictures on disk.
Contest wallpaperThumbnails();
Contest cameraThumbnails();
Contest slideLoading();
Contest tickWithSlideReady();
Contest fadeStep();
Contest addingAll();
Contest startOfProgram();
Contest memoryOfSlides();
Contest memoryOfManyPictures();
Contest playingMusic();
Contest wholeShow();
Contest serverOfShow();
Contest firstSound();
Contest memoryOfLongShow();
Contest pagesOfWebAlbum();
Contest webAlbumAgainstCopying();
Contest webAlbumAgainstGallery();
Contest webAlbumByCall();
Contest openingAlbum();
Contest savingAlbum();
Contest resizingMainWindow();
Contest wallpapersAgain();
Contest cameraPicturesAgain();
Contest listingWithCache();
Contest addingWhatIsListed();
Contest answersDuringListing();
Contest startWithAlbumAgain();
Contest secondVisit();
Contest listingHundredThousandAgain();
Contest addingHundredThousand();
Contest bmpLoading();
Contest firstSlideOfPlay();

/// Body of the process that `memoryOfSlides` starts: a window's slide list of all pictures of
/// `folder`; prints the memory it then takes, in KiB. 0 if all went well.
int holdSlides(const QString& folder);

/// Body of the processes that `memoryOfManyPictures` starts: a window that has listed and added all
/// pictures of `folder`, with a cache at that path; prints the memory it then takes, in KiB. 0 if
/// all went well.
int holdPictures(const QString& folder, const QString& cacheFile);

/// Body of the processes that list a folder with the cache file of that path, or with none where it
/// is empty, and add all of it; prints the milliseconds that each of the two took.
int listPictures(const QString& folder, const QString& cacheFile);

/// Body of the process that `memoryOfLongShow` starts: a show of all pictures of two folders;
/// prints its memory early on and its most afterwards, in KiB.
int holdShow(const QString& small, const QString& medium);

/// Bodies of the processes of the music rows. They need no application object: 0 if all went well.
int playTrack(const QString& file);
int timeFirstSound(const QString& file);
int timeFirstPlainSound(const QString& file);

}  // namespace velorama::bench
