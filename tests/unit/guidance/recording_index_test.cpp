#include "guidance/recording_index.h"

#include <gtest/gtest.h>

#include "platform/headless/memory_files.h"
#include "recordings.h"

namespace korvinel::guidance {
namespace {

TEST(RecordingIndex, KnowsFilesAndSubjectsPieceByPiece) {
  platform::MemoryFiles files;
  files.content[recordings::folder + "uno.QVD"] = recordings::file(2);
  files.content[recordings::folder + "due.qvd"] = "\"Nicol\xF2 Verdi\",\"02/11/2026 V3\",\"4canali\",1\r\n";
  files.content[recordings::folder + "damaged.QVD"] = "\"Bian";
  files.content[recordings::folder + "closed.QVD"] = recordings::file(2);
  files.unreadable = {recordings::folder + "closed.QVD"};
  RecordingIndex index(files, recordings::folder);
  EXPECT_TRUE(index.isComplete());
  index.look();
  EXPECT_TRUE(index.hasFile("UNO.qvd"));
  EXPECT_FALSE(index.hasFile("tre.QVD"));
  int pieces = 0;
  for (; !index.isComplete(); ++pieces) index.readOne();
  EXPECT_EQ(pieces, 4);
  EXPECT_EQ(index.subjects().completionOf("ros"), "Rossi");
  EXPECT_EQ(index.subjects().completionOf("nic"), "Nicolò Verdi");
  EXPECT_EQ(index.subjects().completionOf("bi"), "");
}

TEST(RecordingIndex, ReadsOnlyWhatIsNewLater) {
  platform::MemoryFiles files;
  files.content[recordings::folder + "uno.QVD"] = recordings::file(2);
  RecordingIndex index(files, recordings::folder);
  index.look();
  index.readOne();
  index.readOne();
  files.content[recordings::folder + "due.QVD"] = "\"Verdi\",\"21/11/2026 V3\",\"4canali\",1\r\n";
  index.look();
  EXPECT_FALSE(index.isComplete());
  index.readOne();
  EXPECT_TRUE(index.isComplete());
  EXPECT_EQ(index.subjects().completionOf("ver"), "Verdi");
}

}  // namespace
}  // namespace korvinel::guidance
