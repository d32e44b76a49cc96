ZKBaseGUIControls form 1
Begin ZKSlider S
  Left = 0
  Top = 0
  Width = 2880
  Height = 375
  Visible = True
  ToolTipText = "level"
  TabIndex = 0
  TabStop = True
  Min = -20
  Max = 80
  Step = 2.5
  Value = 12.75
  Decimals = 2
  DecimalSep = ","
End
Begin ZKProgessBar P
  Left = 0
  Top = 600
  Width = 2415
  Height = 375
  Visible = True
  ToolTipText = ""
  TabIndex = 1
  TabStop = False
  Progress = 300
  ScaleMax = 500
  ScaleMin = -20
  Caption = "Jobs, ""nightly"""
End
