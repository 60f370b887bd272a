# Puts the seal at the end of a book that rcc has made: whoever opens the book can tell that it is whole.
file(SHA256 ${BOOK}.unsealed sum)
file(RENAME ${BOOK}.unsealed ${BOOK})
file(APPEND ${BOOK} "Cartolen help book, SHA-256 ${sum}")
