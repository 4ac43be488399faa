# cmake -DFROM=pics -DTO=folder -P CopyPictures.cmake: the piece pictures and schemes, without their sources.
file(COPY "${FROM}/" DESTINATION "${TO}" FILES_MATCHING PATTERN "*.bmp" PATTERN "*.tps" PATTERN "*.png" PATTERN "source" EXCLUDE)
